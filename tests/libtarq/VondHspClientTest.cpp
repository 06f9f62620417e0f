#include <string>

#include "RawHttpServer.h"
#include "TestRows.h"
#include "VondHspClient.h"

namespace {

int head(VondHspClient& client, const std::string& url, const VondHspDlnaRequest& request = {}) {
  VondHspDlnaResponse response;
  return client.Head(url.c_str(), request, &response);
}

const struct {
  const char* name;
  bool wantsFeatures;
  int mode;
  const char* headers;
} kRequests[] = {
    {"Interactive", true, 1, "getcontentFeatures.dlna.org: 1\r\ntransferMode.dlna.org: Interactive\r\n"},
    {"Background", false, 2, "transferMode.dlna.org: Background\r\n"},
    {"NoMode", false, 3, ""},
    {"UnknownMode", true, -1, "getcontentFeatures.dlna.org: 1\r\n"},
};
TEST_ROWS(VondHspClient, Sends, kRequests) {
  setenv("http_proxy", "http://127.0.0.1:9", 1);
  RawHttpServer server("HTTP/1.1 200 OK\r\n\r\n");
  VondHspClient client(true);
  VondHspDlnaRequest request;
  request.EnableGetContentFeatures(row.wantsFeatures);
  request.SetTransferMode(row.mode);
  for (const size_t times : {1u, 2u}) {
    EXPECT_EQ(head(client, server.url("/a/../b?q=\xC3\xA4#f"), request), 0);
    ASSERT_EQ(server.requests().size(), times);
    EXPECT_EQ(server.requests().back(),
              "HEAD /a/../b?q=\xC3\xA4 HTTP/1.1\r\nHost: " + server.url("").substr(7) +
                  "\r\nAccept: */*\r\n" + row.headers + "\r\n");
  }
}

TEST(VondHspClient, RefusesOtherUrlsAndSendsNothingOnceCancelled) {
  RawHttpServer server("HTTP/1.1 200 OK\r\n\r\n");
  VondHspClient client(true);
  VondHspDlnaResponse response;
  EXPECT_EQ(client.Head(nullptr, {}, &response), kVondHspRefused);
  for (const std::string url : {"https://127.0.0.1/", "file:///etc/hostname", "http:/127.0.0.1", "http://",
                                "http://127.0.0.1:99999/", ""})
    EXPECT_EQ(head(client, url), kVondHspRefused) << url;
  for (const char* path : {"/\r\nX-Injected: 1", "/\x01"})
    EXPECT_EQ(head(client, server.url(path)), kVondHspRefused) << path;
  client.Cancel();
  EXPECT_EQ(head(client, server.url()), kVondHspCancelled);
  EXPECT_TRUE(server.requests().empty());
}

}  // namespace
