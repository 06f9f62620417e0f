// The HTTP client against a server that sends any bytes and closes the connection.
// Input: a line with a size, then the bytes. They are sent in one piece, and again in pieces of that size.
#include <netinet/tcp.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>

#include "FuzzInput.h"
#include "RawHttpServer.h"
#include "VondHspClient.h"

namespace {

// Long enough for a busy machine, but shorter than the client's own time limit.
constexpr std::chrono::seconds kLimit(10);

void answerOne(int listener, std::string_view bytes, size_t pieceSize) {
  const int fd = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
  const int atOnce = 1;
  setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof atOnce);
  RawHttpServer::Connection client(fd);
  while (!bytes.empty() && client.send(bytes.substr(0, pieceSize)))
    bytes.remove_prefix(std::min(pieceSize, bytes.size()));
  close(fd);
}

bool hasNul(std::string_view bytes) { return bytes.find('\0') != bytes.npos; }

void checkValue(const char* value) {
  const std::string_view text = value != nullptr ? value : "";
  const auto isControl = [](unsigned char c) { return (c < ' ' && c != '\t') || c == 0x7F; };
  require(std::ranges::none_of(text, isControl), "a header value has no control bytes");
  require(text.empty() || (text.find_first_of(" \t") != 0 && text.find_last_of(" \t") != text.size() - 1),
          "a header value has no white space around it");
}

std::string outcomeOf(const LoopbackListener& listener, std::string_view bytes, size_t pieceSize) {
  const auto start = std::chrono::steady_clock::now();
  std::thread server([&] { answerOne(listener.fd(), bytes, pieceSize); });
  VondHspClient client(true);
  VondHspDlnaResponse response;
  const int code = client.Head(listener.url("/media").c_str(), VondHspDlnaRequest(), &response);
  client.Close();
  server.join();
  require(std::chrono::steady_clock::now() - start < kLimit, "a request ends when the server does");

  const int status = response.GetStatusCode();
  const char* type = response.GetContentType();
  const char* features = response.GetContentFeatures();
  require(code == 0 || (code >= kVondHspConnectFailed && code <= kVondHspNoResources),
          "a request ends in a known code");
  require(code == 0 || (status == 0 && type == nullptr && features == nullptr),
          "without success there is no answer");
  require(code != 0 || bytes.find(std::to_string(status)) != bytes.npos,
          "the status is a part of what the server sent");
  // For libcurl a line that begins with a NUL is the end of what it has read.
  const bool complete = bytes.find("\n\n") != bytes.npos || bytes.find("\n\r") != bytes.npos;
  require(code != 0 || complete || hasNul(bytes), "an answer ends with a blank line");
  checkValue(type);
  checkValue(features);
  const auto shown = [](const char* text) { return text != nullptr ? '[' + std::string(text) + ']' : "-"; };
  return std::to_string(code) + ' ' + std::to_string(status) + shown(type) + shown(features);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const LoopbackListener listener;
  FuzzInput input(data, size);
  const auto pieceSize = static_cast<size_t>(input.number() & 0x7F) + 1;
  const std::string outcome = outcomeOf(listener, input.rest(), size + 1);
  const bool same = outcomeOf(listener, input.rest(), pieceSize) == outcome;
  require(same || hasNul(input.rest()), "the size of the pieces does not matter");
  return 0;
}
