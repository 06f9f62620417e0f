#include <string>

#include "RawHttpServer.h"
#include "TestRows.h"
#include "VondHspClient.h"

namespace {

int head(VondHspClient& client, const char* url, const VondHspDlnaRequest& request = {}) {
  VondHspDlnaResponse response;
  return client.Head(url, request, &response);
}

const struct {
  const char* name;
  bool wantsFeatures;
  int mode;
  const char* headers;
} kRequests[] = {
    {"Interactive", true, 1, "getcontentFeatures.dlna.org: 1\r\ntransferMode.dlna.org: Interactive\r\n"},
    {"Background", false, 2, "transferMode.dlna.org: Background\r\n"},
    {"UnknownMode", true, -1, "getcontentFeatures.dlna.org: 1\r\n"},
};
TEST_ROWS(VondHspClient, Sends, kRequests) {
  setenv("http_proxy", "http://127.0.0.1:9", 1);
  RawHttpServer server("HTTP/1.1 200 OK\r\n\r\n");
  VondHspClient client(true);
  VondHspDlnaRequest request;
  request.EnableGetContentFeatures(row.wantsFeatures);
  request.SetTransferMode(row.mode);
  const std::string host = server.url("").substr(7);
  EXPECT_EQ(head(client, ("http://u:p@" + host + "/a/../\xC3\xA4?q=\xC3\xA4&r#f").c_str(), request), 0);
  EXPECT_EQ(server.requests().back(), "HEAD /a/../%c3%a4?q=%c3%a4&r HTTP/1.1\r\nHost: " + host +
                                          "\r\nAccept: */*\r\n" + row.headers + "\r\n");
}

TEST(VondHspClient, RefusesOtherUrlsAndSendsNothingOnceCancelled) {
  RawHttpServer server("HTTP/1.1 200 OK\r\n\r\n");
  VondHspClient client(true);
  EXPECT_EQ(head(client, nullptr), kVondHspRefused);
  for (const std::string& url : {std::string("https://127.0.0.1/"), std::string("http://127.0.0.1:99999/"),
                                 server.url("/\r\nX-Injected: 1"), server.url("/\x01"), server.url("/a b"),
                                 std::string(), server.url("/" + std::string(1 << 20, '\xFF'))})
    EXPECT_EQ(head(client, url.c_str()), kVondHspRefused) << url.substr(0, 40);
  client.Cancel();
  EXPECT_EQ(head(client, server.url().c_str()), kVondHspCancelled);
  EXPECT_TRUE(server.requests().empty());
}

}  // namespace
