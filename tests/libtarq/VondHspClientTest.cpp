#include <dlfcn.h>
#include <gtest/gtest.h>
#include <netdb.h>

#include <chrono>
#include <thread>

#include "OutcomeRows.h"
#include "RawHttpServer.h"
#include "VondHspClient.h"

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Connection = RawHttpServer::Connection;

// Takes the place of the C library's function in this program, libcurl included: no name server is asked. One
// name is stuck, every other in ".invalid" is unknown.
extern "C" int getaddrinfo(const char* node, const char* service, const addrinfo* hints, addrinfo** result) {
  const std::string_view name = node != nullptr ? node : "";
  if (name == "stuck.invalid") std::this_thread::sleep_for(3s);
  if (name.ends_with(".invalid")) return EAI_NONAME;
  static const auto real = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
  return real(node, service, hints, result);
}

namespace {

std::string repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

// "code status type|features" in one text, so that a table row shows all of an outcome.
std::string head(const std::string& url) {
  VondHspClient client(true);
  VondHspDlnaResponse response;
  const int code = client.Head(url.c_str(), VondHspDlnaRequest(), &response);
  client.Close();
  client.Close();
  const auto shown = [](const char* text) { return std::string(text != nullptr ? text : "-"); };
  return std::to_string(code) + " " + std::to_string(response.GetStatusCode()) + " " +
         shown(response.GetContentType()) + "|" + shown(response.GetContentFeatures());
}

void silence(Connection& client) { client.closedWithin(60s); }

TEST(VondHspClient, SendsExactlyTheHeadersAskedFor) {
  const struct {
    bool features;
    int mode;
    const char* headers;
  } cases[] = {
      {true, 0, "getcontentFeatures.dlna.org: 1\r\ntransferMode.dlna.org: Streaming\r\n"},
      {true, 1, "getcontentFeatures.dlna.org: 1\r\ntransferMode.dlna.org: Interactive\r\n"},
      {false, 2, "transferMode.dlna.org: Background\r\n"},
      {false, 3, ""},
      {true, -1, "getcontentFeatures.dlna.org: 1\r\n"},
  };
  setenv("http_proxy", "http://127.0.0.1:9", 1);
  RawHttpServer server("HTTP/1.1 200 OK\r\n\r\n");
  VondHspClient client(true);
  for (const auto& c : cases) {
    VondHspDlnaRequest request;
    request.EnableGetContentFeatures(c.features);
    request.SetTransferMode(c.mode);
    VondHspDlnaResponse response;
    EXPECT_EQ(client.Head(server.url("/a/../b?q=\xC3\xA4#f").c_str(), request, &response), 0);
    EXPECT_EQ(server.requests().back(),
              "HEAD /a/../b?q=\xC3\xA4 HTTP/1.1\r\nHost: " + server.url("").substr(7) +
                  "\r\nAccept: */*\r\n" + c.headers + "\r\n");
  }
  EXPECT_EQ(server.requests().size(), std::size(cases));
}

TEST(VondHspClient, ReadsWhatServersAnswer) {
  const std::string ok = "HTTP/1.1 200 OK\r\n";
  const struct {
    std::string answer;
    const char* outcome;
  } cases[] = {
      {ok + "Content-Type: audio/mpeg\r\ncontentFeatures.dlna.org: *\r\n\r\n", "0 200 audio/mpeg|*"},
      {"HTTP/1.0 503 Busy\r\n\r\n", "0 503 -|-"},
      {"HTTP/1.1 403 No\r\nContent-Length: 9\r\n\r\nForbidden", "0 403 -|-"},
      {"HTTP/1.1 301 Moved\r\nLocation: http://127.0.0.1:9/\r\n\r\n", "0 301 -|-"},
      {"HTTP/1.1 204 None\r\nContent-Type:\r\n\r\n", "0 204 |-"},
      {ok + "Content-Length: \r\nContent-Type: a/b\r\n\r\n", "0 200 a/b|-"},
      {ok + "Content-Length: 5\r\nTransfer-Encoding: chunked\r\n\r\nbody!", "0 200 -|-"},
      {ok + "CONTENTfeatures.DLNA.org:DLNA.ORG_PN=MP3;\r\n\t DLNA.ORG_OP=01 \r\n \r\nX-Other: 1\r\n\t2\r\n"
            "contentfeatures.dlna.org: second\r\n folded\r\ncontent-TYPE:\r\n a/b\r\n\r\n",
       "0 200 a/b|DLNA.ORG_PN=MP3; DLNA.ORG_OP=01"},
      {repeated("HTTP/1.1 100 Continue\r\nContent-Type: x/y\r\n\r\n", 50) + ok + "\r\n", "0 200 -|-"},
      {"ICY 200 OK\r\nContent-Type: audio/mpeg\r\n\r\n", "2105 0 -|-"},
      {"hello, this is no HTTP answer at all\r\n", "2105 0 -|-"},
      {"", "2106 0 -|-"},
      {ok + "Content-Type: audio/mp", "2106 0 -|-"},
      {ok + "Content-Type: audio/mpeg\r\n", "2106 0 -|-"},
      {"HTTP/1.1 100 Continue\r\n\r\n", "2106 0 -|-"},
      {ok + repeated("X: y\r\n", 50'000) + "\r\n", "0 200 -|-"},
      {ok + repeated("X: y\r\n", 60'000), "2105 0 -|-"},
      {ok + "X: " + repeated("y", 400'000), "2105 0 -|-"},
      {repeated("HTTP/1.1 100 Continue\r\n\r\n", 20'000), "2105 0 -|-"},
  };
  for (const auto& c : cases) {
    RawHttpServer server(c.answer);
    EXPECT_EQ(head(server.url()), c.outcome) << c.answer.substr(0, 200);
  }
}

TEST(VondHspClient, NamesTheReasonOfAFailure) {
  std::string refused;
  { refused = LoopbackListener().url("/"); }
  RawHttpServer resetting([](Connection& client) { client.resetOnClose(); });
  expectOutcomes(head, {refused + " => 2103 0 -|-", resetting.url() + " => 2106 0 -|-",
                        "http://no-such-host.invalid/ => 2104 0 -|-", "https://127.0.0.1/ => 2108 0 -|-",
                        "file:///etc/hostname => 2108 0 -|-", "http:/127.0.0.1 => 2108 0 -|-",
                        "http:// => 2108 0 -|-", "http://127.0.0.1:99999/ => 2108 0 -|-", " => 2108 0 -|-",
                        resetting.url("/\r\nX-Injected: 1") + " => 2108 0 -|-",
                        resetting.url("/\x01") + " => 2108 0 -|-"});
  EXPECT_EQ(resetting.requests().size(), 1u);
  VondHspDlnaResponse response;
  EXPECT_EQ(VondHspClient(true).Head(nullptr, VondHspDlnaRequest(), &response), kVondHspRefused);
}

// How long `Head` goes on after `Cancel`, which comes `delay` after its start.
Clock::duration cancelLatency(const std::string& url, std::chrono::milliseconds delay) {
  VondHspClient client(true);
  Clock::time_point cancelledAt;
  std::thread canceller([&] {
    std::this_thread::sleep_for(delay);
    cancelledAt = Clock::now();
    client.Cancel();
  });
  VondHspDlnaResponse response;
  EXPECT_EQ(client.Head(url.c_str(), VondHspDlnaRequest(), &response), kVondHspCancelled);
  client.Close();
  const Clock::time_point endedAt = Clock::now();
  canceller.join();
  return endedAt - cancelledAt;
}

TEST(VondHspClient, EndsAtOnceWhenCancelled) {
  RawHttpServer silent(silence);
  RawHttpServer slow([](Connection& client) {
    for (const char byte : std::string("HTTP/1.1 200 OK\r\n\r\n")) {
      if (!client.send({&byte, 1}) || client.closedWithin(500ms)) return;
    }
  });
  for (const std::string& url : {silent.url(), slow.url(), std::string("http://stuck.invalid/")})
    for (const auto delay : {0ms, 1ms, 200ms}) EXPECT_LT(cancelLatency(url, delay), 50ms) << url;

  RawHttpServer unasked("HTTP/1.1 200 OK\r\n\r\n");
  VondHspClient client(true);
  VondHspDlnaResponse response;
  client.Cancel();
  EXPECT_EQ(client.Head(unasked.url().c_str(), VondHspDlnaRequest(), &response), kVondHspCancelled);
  EXPECT_TRUE(unasked.requests().empty());
}

TEST(VondHspClient, IgnoresCancelWhenNotCancellable) {
  RawHttpServer server([](Connection& client) {
    if (!client.closedWithin(100ms)) client.send("HTTP/1.1 200 OK\r\n\r\n");
  });
  VondHspClient client(false);
  std::thread canceller([&] {
    server.waitForRequest();
    client.Cancel();
  });
  VondHspDlnaResponse response;
  EXPECT_EQ(client.Head(server.url().c_str(), VondHspDlnaRequest(), &response), 0);
  canceller.join();
}

}  // namespace
