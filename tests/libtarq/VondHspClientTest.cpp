#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <tuple>

#include "RawHttpServer.h"
#include "VondHspClient.h"

using namespace std::chrono_literals;

namespace {

TEST(VondHspClient, SendsExactlyTheHeadersAskedFor) {
  const std::string features = "getcontentFeatures.dlna.org: 1\r\n";
  const std::tuple<bool, int, std::string> cases[] = {
      {true, 1, features + "transferMode.dlna.org: Interactive\r\n"},
      {false, 2, "transferMode.dlna.org: Background\r\n"},
      {false, 3, ""},
      {true, -1, features},
  };
  setenv("http_proxy", "http://127.0.0.1:9", 1);
  RawHttpServer server("HTTP/1.1 200 OK\r\n\r\n");
  VondHspClient client(true);
  for (const auto& [wantsFeatures, mode, headers] : cases) {
    VondHspDlnaRequest request;
    request.EnableGetContentFeatures(wantsFeatures);
    request.SetTransferMode(mode);
    VondHspDlnaResponse response;
    EXPECT_EQ(client.Head(server.url("/a/../b?q=\xC3\xA4#f").c_str(), request, &response), 0);
    EXPECT_EQ(server.requests().back(),
              "HEAD /a/../b?q=\xC3\xA4 HTTP/1.1\r\nHost: " + server.url("").substr(7) +
                  "\r\nAccept: */*\r\n" + headers + "\r\n");
  }
  EXPECT_EQ(server.requests().size(), std::size(cases));
}

TEST(VondHspClient, RefusesWhatIsNoHttpUrlAndAsksNobodyOnceCancelled) {
  RawHttpServer server("HTTP/1.1 200 OK\r\n\r\n");
  VondHspClient client(true);
  const auto head = [&](const char* url) {
    VondHspDlnaResponse response;
    return client.Head(url, VondHspDlnaRequest(), &response);
  };
  EXPECT_EQ(head(nullptr), kVondHspRefused);
  for (const char* url : {"https://127.0.0.1/", "file:///etc/hostname", "http:/127.0.0.1", "http://",
                          "http://127.0.0.1:99999/", ""})
    EXPECT_EQ(head(url), kVondHspRefused) << url;
  for (const char* path : {"/\r\nX-Injected: 1", "/\x01"})
    EXPECT_EQ(head(server.url(path).c_str()), kVondHspRefused) << path;
  client.Cancel();
  EXPECT_EQ(head(server.url().c_str()), kVondHspCancelled);
  EXPECT_TRUE(server.requests().empty());
}

TEST(VondHspClient, IgnoresCancelWhenNotCancellable) {
  VondHspClient client(false);
  RawHttpServer server([&](RawHttpServer::Connection& connection) {
    client.Cancel();
    if (!connection.closedWithin(100ms)) connection.send("HTTP/1.1 200 OK\r\n\r\n");
  });
  VondHspDlnaResponse response;
  EXPECT_EQ(client.Head(server.url().c_str(), VondHspDlnaRequest(), &response), 0);
}

}  // namespace
