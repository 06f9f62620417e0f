// What the renderer's HTTP server refuses, and whom it does not let hold it up.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ControlPoint.h"
#include "TestRows.h"

namespace {

using testing::HasSubstr;

const std::string kCallback = "http://10.9.0.2:9/";
const std::string kForeign = "Host: renderer.example:52323\r\n";
const HttpRequest kState = actionRequest("AVTransport", "GetTransportInfo", {{"InstanceID", "0"}});
const HttpRequest kOther = actionRequest("RenderingControl", "GetTransportInfo", {});
constexpr const char* kEvents = "/AVTransport/event";

const struct {
  const char* name;
  HttpRequest request;
  int error;  // of an action, or a status below 0
} kRequests[] = {
    {"ActionForOtherHost", {"POST", kState.path, kState.headers + kForeign, kState.body}, -412},
    {"DescriptionForOtherHost", {"GET", "/device.xml", kForeign}, -412},
    {"PageForOtherHost", {"GET", "/page/now", kForeign}, -412},
    {"PageTakesNothing", {"POST", "/page"}, -405},
    {"EventsForOtherHost", subscription("AVTransport", kCallback, kForeign), -412},
    {"OtherSoapAction", {"POST", kState.path, kOther.headers, kState.body}, 401},
    {"NoEnvelope", {"POST", kState.path, kState.headers, "x"}, -412},
    {"HalfAnEnvelope", {"POST", kState.path, kState.headers, kState.body.substr(0, 150)}, 402},
    {"ForeignCallback", subscription("AVTransport", "http://198.51.100.7/"), -412},
    {"CallbackByName", subscription("AVTransport", "http://name.example/"), -412},
    {"NoCallback", {"SUBSCRIBE", kEvents, "NT: upnp:event\r\n"}, -412},
    {"RenewalOfNothing", {"SUBSCRIBE", kEvents, "SID: uuid:1\r\n"}, -412},
    {"BodyAboveTheLimit", {"POST", kState.path, kState.headers, std::string((8 << 20) + 1, 'x')}, -413},
    {"OutsideItsFolder", {"GET", "/../../etc/hostname"}, -404},
};

TEST_ROWS(Guard, Answers, kRequests) {
  const HttpAnswer answer = row.request.send();
  EXPECT_EQ(answer.error(), row.error) << answer.head << answer.body;
}

TEST(Guard, RefusesABodyWithoutLengthAboveTheLimit) {
  HttpConnection connection;
  std::string head = kState.text();
  head.resize(head.find("Content-Length"));
  connection.send(head + "Transfer-Encoding: chunked\r\n\r\n");
  for (int i = 0; i < 9; ++i) connection.send("100000\r\n" + std::string(1 << 20, 'x') + "\r\n");
  connection.send("0\r\n\r\n");
  EXPECT_EQ(connection.answer().status, 413);
}

// libsoup would keep it, and its socket for good when the client closes it.
TEST(Guard, KeepsNoConnection) {
  std::string text = kState.text();
  text.erase(text.find("Connection: close\r\n"), 19);
  HttpConnection connection;
  connection.send(text);
  EXPECT_THAT(connection.answer().head, HasSubstr("Connection: close"));
}

TEST(Guard, LimitsSubscriptions) {
  const RendererProgram program({"--port", std::to_string(kOtherPort)});
  HttpRequest request = subscription("RenderingControl", kCallback);
  request.port = kOtherPort;
  for (int i = 0; i < 64; ++i) EXPECT_EQ(request.send().status, 200);
  EXPECT_EQ(request.send().status, 503);
}

const struct {
  const char* name;
  std::vector<std::string> options;
  int status;
} kAccess[] = {
    {"Denied", {"--access", "deny"}, 403},
    {"DeniedByAddress", {"--deny", kOwnAddress}, 403},
    {"AllowedByAddress", {"--access", "deny", "--allow", kOwnAddress}, 200},
};

TEST_ROWS(Guard, LetsIn, kAccess) {
  std::vector<std::string> options = {"--port", std::to_string(kOtherPort)};
  options.insert(options.end(), row.options.begin(), row.options.end());
  const RendererProgram program(options);
  HttpRequest requests[] = {
      kState, subscription("AVTransport", kCallback), {"GET", "/page/now"}, {"GET", "/device.xml"}};
  for (HttpRequest& request : requests) request.port = kOtherPort;
  EXPECT_EQ(requests[0].send().status, row.status);
  EXPECT_EQ(requests[1].send().status, row.status);
  EXPECT_EQ(requests[2].send().status, row.status);
  EXPECT_EQ(requests[3].send().status, 200);
}

TEST(Guard, IsNotHeldUpByClientsThatVanishOrAreSilent) {
  bringInto("STOPPED");
  const std::string uri = MediaServer::url("/slow");
  const std::vector<HttpConnection> silent(30);
  {
    HttpConnection vanishing;
    vanishing.send(sourceRequest(uri, musicDidl(uri)).text());
    ::usleep(200'000);
    vanishing.resetOnClose();
  }
  EXPECT_EQ(transportState(), "STOPPED");
  EXPECT_EQ(avt("Stop").error(), 0);
  EXPECT_EQ(avt("Play Speed=1").error(), 0);
}

}  // namespace
