#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "RawHttpServer.h"
#include "VondHspClient.h"

using namespace std::chrono_literals;

namespace {

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

TEST(VondHspClient, RefusesWhatIsNoHttpUrl) {
  RawHttpServer server("HTTP/1.1 200 OK\r\n\r\n");
  VondHspClient client(true);
  VondHspDlnaResponse response;
  EXPECT_EQ(client.Head(nullptr, VondHspDlnaRequest(), &response), kVondHspRefused);
  for (const std::string& url :
       {std::string("https://127.0.0.1/"), std::string("file:///etc/hostname"),
        std::string("http:/127.0.0.1"), std::string("http://"), std::string("http://127.0.0.1:99999/"),
        std::string(), server.url("/\r\nX-Injected: 1"), server.url("/\x01")})
    EXPECT_EQ(client.Head(url.c_str(), VondHspDlnaRequest(), &response), kVondHspRefused) << url;
  EXPECT_TRUE(server.requests().empty());
}

TEST(VondHspClient, AsksNobodyOnceCancelled) {
  RawHttpServer server("HTTP/1.1 200 OK\r\n\r\n");
  VondHspClient client(true);
  VondHspDlnaResponse response;
  client.Cancel();
  EXPECT_EQ(client.Head(server.url().c_str(), VondHspDlnaRequest(), &response), kVondHspCancelled);
  EXPECT_TRUE(server.requests().empty());
}

TEST(VondHspClient, IgnoresCancelWhenNotCancellable) {
  RawHttpServer server([](RawHttpServer::Connection& client) {
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
