#ifndef TARQ_TESTS_SCRIPTED_LIBRARY_H_
#define TARQ_TESTS_SCRIPTED_LIBRARY_H_

#include <algorithm>
#include <functional>
#include <map>
#include <mutex>
#include <string>

#include "RawHttpServer.h"

// What a Browse asks for.
struct BrowseRequest {
  std::string container;
  int start;
  int count;
  int times;  // how often this was asked for, from 1
};

inline std::string between(const std::string& text, const std::string& begin, const std::string& end) {
  const size_t found = text.find(begin);
  if (found == std::string::npos) return {};
  const size_t from = found + begin.size();
  return text.substr(from, text.find(end, from) - from);
}

inline std::string httpAnswer(const std::string& body, const char* status = "200 OK") {
  return std::string("HTTP/1.1 ") + status +
         "\r\nContent-Type: text/xml\r\nConnection: close\r\nContent-Length: " + std::to_string(body.size()) +
         "\r\n\r\n" + body;
}

inline std::string soapAnswer(const std::string& body, const char* status = "200 OK") {
  return httpAnswer("<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/'><s:Body>" + body +
                        "</s:Body></s:Envelope>",
                    status);
}

inline std::string upnpError(int code) {
  return soapAnswer("<s:Fault><detail><UPnPError><errorCode>" + std::to_string(code) +
                        "</errorCode><errorDescription>no</errorDescription></UPnPError></detail></s:Fault>",
                    "500 Internal Server Error");
}

struct Objects {
  std::string didl;  // without the root
  int count = 0;

  Objects& item(const std::string& id, const std::string& type = "audio/mpeg:DLNA.ORG_PN=MP3") {
    didl += "<item id='" + id + "'><dc:title>" + id + "</dc:title><res protocolInfo='http-get:*:" + type +
            "'>http://127.0.0.1:9/" + id + "</res></item>";
    ++count;
    return *this;
  }
  Objects& items(int begin, int end) {
    for (int i = begin; i < end; ++i) item(std::to_string(i));
    return *this;
  }
  Objects& container(const std::string& id) {
    didl += "<container id='" + id + "'><dc:title>in " + id + "</dc:title></container>";
    ++count;
    return *this;
  }
};

inline std::string rooted(const std::string& objects) {
  return "<DIDL-Lite xmlns='urn:schemas-upnp-org:metadata-1-0/DIDL-Lite/' "
         "xmlns:dc='http://purl.org/dc/elements/1.1/'>" +
         objects + "</DIDL-Lite>";
}

// `updateId`: of the container.
inline std::string browseAnswer(const std::string& didl, int returned, int total, int updateId = 1) {
  std::string escaped;
  for (const char c : didl) c == '&' ? escaped += "&amp;" : c == '<' ? escaped += "&lt;" : escaped += c;
  return soapAnswer("<u:BrowseResponse><Result>" + escaped + "</Result><NumberReturned>" +
                    std::to_string(returned) + "</NumberReturned><TotalMatches>" + std::to_string(total) +
                    "</TotalMatches><UpdateID>" + std::to_string(updateId) +
                    "</UpdateID></u:BrowseResponse>");
}
inline std::string browseAnswer(const Objects& objects, int total) {
  return browseAnswer(rooted(objects.didl), objects.count, total);
}

// What an honest server answers that has so many items, 200 at most at a time.
inline std::string honestPage(const BrowseRequest& request, int items) {
  const int end = std::min({items, request.start + request.count, request.start + 200});
  return browseAnswer(Objects().items(request.start, end), items);
}

// A media server on the loopback address whose ContentDirectory answers as the test says.
class ScriptedLibrary {
 public:
  using Answer = std::string(const BrowseRequest& request);

  explicit ScriptedLibrary(std::function<Answer> answer, std::string controlUrl = "/control")
      : answer_(std::move(answer)),
        controlUrl_(std::move(controlUrl)),
        server_([this](RawHttpServer::Connection& client) { client.send(answerTo(client)); }) {}

  std::string url() const { return server_.url("/description.xml"); }

 private:
  std::string answerTo(RawHttpServer::Connection& client) {
    if (client.request().starts_with("GET")) return httpAnswer(description());
    if (client.request().find("#GetSystemUpdateID") != std::string::npos)
      return soapAnswer("<u:GetSystemUpdateIDResponse><Id>7</Id></u:GetSystemUpdateIDResponse>");
    const auto number = [&](const char* name) {
      return std::stoi(between(client.body(), std::string("<") + name + ">", "<"));
    };
    BrowseRequest request{between(client.body(), "<ObjectID>", "<"), number("StartingIndex"),
                          number("RequestedCount"), 0};
    {
      const std::lock_guard lock(mutex_);
      request.times = ++times_[{request.container, request.start}];
    }
    return answer_(request);
  }
  std::string description() const {
    return "<root xmlns='urn:schemas-upnp-org:device-1-0'><device><friendlyName>Scripted</friendlyName>"
           "<modelName>Test</modelName><serviceList><service>"
           "<serviceType>urn:schemas-upnp-org:service:ContentDirectory:1</serviceType><controlURL>" +
           controlUrl_ + "</controlURL></service></serviceList></device></root>";
  }

  std::function<Answer> answer_;
  std::string controlUrl_;
  std::mutex mutex_;
  std::map<std::pair<std::string, int>, int> times_;
  RawHttpServer server_;  // last: it uses all of the above
};

#endif  // TARQ_TESTS_SCRIPTED_LIBRARY_H_
