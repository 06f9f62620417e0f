#ifndef TARQ_TESTS_RENDERER_CONTROL_POINT_H_
#define TARQ_TESTS_RENDERER_CONTROL_POINT_H_

#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "RawHttpServer.h"
#include "RendererProgram.h"

struct HttpAnswer {
  int status = 0;  // 0: none came
  std::string head;
  std::string body;

  // Returns: the value of an element, wherever it is.
  std::string value(const char* element) const {
    pugi::xml_document document;
    document.load_string(body.c_str(), pugi::parse_default | pugi::parse_ws_pcdata_single);
    const auto hasName = [&](pugi::xml_node node) { return std::string_view(node.name()) == element; };
    return document.find_node(hasName).text().get();
  }
  // Returns: 0 for an action that was done, otherwise its UPnP error, or the status below 0.
  int error() const {
    if (status == 200) return 0;
    const std::string code = value("errorCode");
    return code.empty() ? -status : std::stoi(code);
  }
};

// A connection to the renderer, on which anything can be said.
class HttpConnection {
 public:
  explicit HttpConnection(int port = kDefaultPort) : fd_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(port));
    inet_pton(AF_INET, kRendererAddress, &address.sin_addr);
    const timeval limit{10, 0};
    setsockopt(fd_, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    connect(fd_, reinterpret_cast<sockaddr*>(&address), sizeof address);
  }
  ~HttpConnection() { close(fd_); }
  HttpConnection(const HttpConnection&) = delete;
  HttpConnection& operator=(const HttpConnection&) = delete;

  void send(std::string_view text) {
    for (ssize_t sent; !text.empty(); text.remove_prefix(static_cast<size_t>(sent))) {
      if ((sent = ::send(fd_, text.data(), text.size(), MSG_NOSIGNAL)) <= 0) return;
    }
  }
  // Reads until the renderer closes.
  HttpAnswer answer() {
    std::string text;
    char buffer[65536];
    for (ssize_t got; (got = recv(fd_, buffer, sizeof buffer, 0)) > 0;) {
      text.append(buffer, static_cast<size_t>(got));
    }
    const size_t end = text.find("\r\n\r\n");
    if (end == std::string::npos) return {};
    return {std::stoi(text.substr(text.find(' '))), text.substr(0, end), text.substr(end + 4)};
  }
  // The end of the connection becomes a reset.
  void resetOnClose() {
    const linger none{1, 0};
    setsockopt(fd_, SOL_SOCKET, SO_LINGER, &none, sizeof none);
  }

 private:
  int fd_;
};

struct HttpRequest {
  std::string method;
  std::string path;
  std::string headers = {};  // each with its end of line; without Host, it is the renderer's own
  std::string body = {};
  int port = kDefaultPort;

  std::string text() const {
    const std::string own = std::string("Host: ") + kRendererAddress + ":" + std::to_string(port) + "\r\n";
    return method + " " + path + " HTTP/1.1\r\nConnection: close\r\n" +
           (headers.find("Host:") == std::string::npos ? own : "") + headers +
           "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
  }
  HttpAnswer send() const {
    HttpConnection connection(port);
    connection.send(text());
    return connection.answer();
  }
};

inline std::string escaped(const std::string& text) {
  std::string out;
  for (const char c : text) c == '&' ? out += "&amp;" : c == '<' ? out += "&lt;" : out += c;
  return out;
}

using Arguments = std::vector<std::pair<std::string, std::string>>;

inline HttpRequest actionRequest(const std::string& service, const std::string& action,
                                 const Arguments& arguments) {
  const std::string type = "urn:schemas-upnp-org:service:" + service + ":1";
  std::string body = "<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/'><s:Body><u:" + action +
                     " xmlns:u='" + type + "'>";
  for (const auto& [name, value] : arguments) body += "<" + name + ">" + escaped(value) + "</" + name + ">";
  body += "</u:" + action + "></s:Body></s:Envelope>";
  return {"POST", "/" + service + "/control", "SOAPACTION: \"" + type + "#" + action + "\"\r\n", body};
}

// `words`: "RenderingControl SetMute InstanceID=0 Channel=Master DesiredMute=1".
inline HttpAnswer act(const std::string& words) {
  const std::vector<std::string> all = wordsOf(words);
  Arguments arguments;
  for (size_t i = 2; i < all.size(); ++i) {
    const size_t equals = all[i].find('=');
    arguments.emplace_back(all[i].substr(0, equals), all[i].substr(equals + 1));
  }
  return actionRequest(all[0], all[1], arguments).send();
}
inline HttpAnswer avt(const std::string& words) { return act("AVTransport " + words + " InstanceID=0"); }
inline HttpAnswer setVolume(int volume) {
  return act("RenderingControl SetVolume InstanceID=0 Channel=Master DesiredVolume=" +
             std::to_string(volume));
}
inline std::string transportState() { return avt("GetTransportInfo").value("CurrentTransportState"); }

inline std::string musicDidl(const std::string& uri, const std::string& duration = "0:10:00") {
  return "<DIDL-Lite xmlns='urn:schemas-upnp-org:metadata-1-0/DIDL-Lite/'><item id='1'><res duration='" +
         duration + "' protocolInfo='http-get:*:audio/mpeg:DLNA.ORG_PN=MP3;DLNA.ORG_OP=01'>" + escaped(uri) +
         "</res></item></DIDL-Lite>";
}

inline HttpRequest sourceRequest(const std::string& uri, const std::string& metadata) {
  return actionRequest("AVTransport", "SetAVTransportURI",
                       {{"InstanceID", "0"}, {"CurrentURI", uri}, {"CurrentURIMetaData", metadata}});
}
inline int setSource(const std::string& uri, const std::string& metadata) {
  return sourceRequest(uri, metadata).send().error();
}

inline HttpRequest subscription(const std::string& service, const std::string& callback,
                                const std::string& headers = "") {
  return {"SUBSCRIBE", "/" + service + "/event",
          headers + "NT: upnp:event\r\nCALLBACK: <" + callback + ">\r\n"};
}

// A media server on this machine: /status403 answers that, /slow nothing, anything else is music.
class MediaServer {
 public:
  static std::string url(const std::string& path) {
    static RawHttpServer server(answer, kOwnAddress);
    return server.url(path);
  }

 private:
  static void answer(RawHttpServer::Connection& client) {
    const std::string path = wordsOf(client.request())[1];
    if (path.starts_with("/slow")) return void(client.closedWithin(std::chrono::seconds(20)));
    const std::string status = path.starts_with("/status") ? path.substr(7, 3) : "200";
    client.send("HTTP/1.1 " + status +
                " X\r\nContent-Type: audio/mpeg\r\nContent-Length: 9\r\n"
                "contentFeatures.dlna.org: DLNA.ORG_PN=MP3;DLNA.ORG_OP=01\r\nConnection: close\r\n\r\n");
  }
};

// Brings the shared renderer into that state, with a track of ten minutes.
inline void bringInto(const std::string& state) {
  avt("Stop");
  if (state == "NO_MEDIA_PRESENT") {
    setSource("", "");
  } else {
    setSource(MediaServer::url("/a"), musicDidl(MediaServer::url("/a")));
  }
  if (state == "PLAYING" || state == "PAUSED_PLAYBACK") avt("Play Speed=1");
  if (state == "PAUSED_PLAYBACK") avt("Pause");
  EXPECT_TRUE(becomesTrue([&] { return transportState() == state; })) << transportState();
}

#endif  // TARQ_TESTS_RENDERER_CONTROL_POINT_H_
