#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "Checker.h"
#include "DidlText.h"
#include "LogCapture.h"
#include "RawHttpServer.h"

using testing::ElementsAre;

namespace {

std::string resElement(const std::string& protocolInfo, const std::string& url,
                       const std::string& attributes = "") {
  return "<res protocolInfo='" + protocolInfo + "' " + attributes + ">" + url + "</res>";
}

struct QuickCase {
  const char* name;
  const char* uri;
  const char* metadata;
  const char* expected;
};

class QuickAcceptance : public testing::TestWithParam<QuickCase> {};

// Nothing listens on port 1: what is not decided from the texts alone ends in 55202 where a server is asked.
TEST_P(QuickAcceptance, IsDecidedByTheTexts) {
  const QuickCase& c = GetParam();
  const auto checker = newChecker();
  EXPECT_EQ(outcomeOf(*checker, checker->CheckResource(c.uri, c.metadata)), c.expected);
  if (std::string(c.expected).starts_with("0 ")) {
    EXPECT_EQ(checker->GetResource()->uri, c.uri) << "not the caller's own pointer";
  }
}

// clang-format off
const QuickCase kQuick[] = {
    {"InternetVideo", "http://h.example/x", "http-get:*:audio/x http-get:*:video/mp4", "0 -1 video/* [-] - -"},
    {"InternetAudio", "http://h.example/x", "http-get:*:audio/mp4", "0 -1 audio/* [-] - -"},
    {"HomeVideoIsProbed", "http://127.0.0.1:1/x", "http-get:*:video/mp4", "55202"},
    {"ApplePlaylist", "http://127.0.0.1:1/x", "http-get:*:application/x-mpegURL http-get:*:application/vnd.apple.mpegURL",
     "0 -1 application/vnd.apple.mpegURL [-] - -"},
    {"Playlist", "http://127.0.0.1:1/x", "http-get:*:application/x-mpegURL", "0 -1 application/x-mpegURL [-] - -"},
    {"M3u8AnywhereInTheUri", "http://127.0.0.1:1/m3u8/x", "audio/", "0 -1 video/* [-] - -"},
    {"Mp4WithAudio", "http://127.0.0.1:1/a?mp4", "audio/", "0 -1 audio/* [-] - -"},
    {"FlvWithoutAudio", "rtsp://127.0.0.1/a.flv", "", "0 -1 video/* [-] - -"},
    {"CaseMatters", "http://127.0.0.1:1/a.MP4", "", "55202"},
    {"NoMetadataNoQuickTest", "http://h.example/a.mp4", nullptr, "55106"},
    {"NoUrl", "127.0.0.1/a.mp4", "http-get:*:video", "55106"},
    {"NoHost", "file:///a.mp4", "http-get:*:video", "55106"},
    {"NoUri", nullptr, "http-get:*:video", "55106"},
    {"LeadingZeroIsAName", "http://127.0.0.01:1/x", "http-get:*:video/mp4", "0 -1 video/* [-] - -"},
    {"RvuIsNotProbed", "http://127.0.0.1:1/x", "RVUALLIANCE", "55106"},
    {"NotHttp", "https://127.0.0.1:1/x", nullptr, "55100"},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(, QuickAcceptance, testing::ValuesIn(kQuick),
                         [](const auto& i) { return std::string(i.param.name); });

struct ServerCase {
  const char* name;
  const char* answer;  // status and headers, separated by "|"; CF stands for contentFeatures.dlna.org
  const char* expected;
};

std::string answerText(const std::string& lines) {
  std::string text = "HTTP/1.1 ";
  for (const char c : lines) text += c == '|' ? std::string("\r\n") : std::string(1, c);
  const size_t features = text.find("\r\nCF:");
  if (features != std::string::npos) text.replace(features + 2, 2, "CONTENTfeatures.dlna.org");
  return text + "\r\n\r\n";
}

class ServerAnswer : public testing::TestWithParam<ServerCase> {};

constexpr char kOk[] = "HTTP/1.1 200 OK\r\n";

// The metadata offers nothing, so that the answer alone tells the format.
TEST_P(ServerAnswer, BecomesAResult) {
  const ServerCase& c = GetParam();
  RawHttpServer server(answerText(c.answer));
  const auto checker = newChecker(2);
  EXPECT_EQ(outcomeOf(*checker, checker->CheckResource(server.url("/x").c_str(), nullptr)), c.expected);
}

// clang-format off
const ServerCase kAnswers[] = {
    {"TypeAlone", "200 OK|Content-Type: video/mp4", "0 -1 video/mp4 [] - MPEG4"},
    {"TypeIsWhole", "200 OK|Content-Type: video/mp4;codecs=a", "55106"},
    {"BrokenType", "200 OK|Content-Type: video", "55106"},
    {"Profile", "200 OK|content-type: a/b|CF: DLNA.ORG_PN=MPEG1;X=1", "0 -1 a/b [DLNA.ORG_PN=MPEG1;X=1] - MPEG1"},
    {"UnknownProfileEndsIt", "200 OK|Content-Type: video/mp4|CF: DLNA.ORG_PN=X;ORSA.COM_PN=HD2_60_T", "55106"},
    {"VendorProfile", "200 OK|Content-Type: a/b|CF: ARIB.OR.JP_PN=X;ORSA.COM_PN=HD2_60_T",
     "0 -1 a/b [ARIB.OR.JP_PN=X;ORSA.COM_PN=HD2_60_T] - MPEG2_TTS"},
    {"MimeTypeIsNoProfile", "200 OK|Content-Type: a/b|CF: DLNA.ORG_PN=video/mp4", "55106"},
    {"BrokenFeatures", "200 OK|Content-Type: video/mp4|CF: =", "0 -1 video/mp4 [=] - MPEG4"},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(, ServerAnswer, testing::ValuesIn(kAnswers),
                         [](const auto& i) { return std::string(i.param.name); });

TEST(Checker, AsksForTheChosenElementOnly) {
  RawHttpServer server(std::string(kOk) + "Content-Type: image/x\r\n\r\n");
  const auto modeOf = [&](const std::string& protocolInfo) {
    const auto checker = newChecker();
    checker->CheckResource(server.url("/x").c_str(),
                           didlText({resElement(protocolInfo, server.url("/y"))}).c_str());
    const std::string request = server.requests().back();
    EXPECT_THAT(request, testing::HasSubstr("getcontentFeatures.dlna.org: 1\r\n"));
    const size_t mode = request.find("transferMode.dlna.org: ");
    return request.substr(0, 8) + (mode == request.npos ? "-" : request.substr(mode + 23, 6));
  };
  EXPECT_EQ(modeOf("http-get:*:image/jpeg:*"), "HEAD /y Intera");
  EXPECT_EQ(modeOf("http-get:*:audio/mpeg:*"), "HEAD /y Stream");
  EXPECT_EQ(modeOf("http-get:*:video/mpeg:*"), "HEAD /y Stream");
  EXPECT_EQ(modeOf("http-get:*:text/plain:*"), "HEAD /x -");
}

TEST(Checker, ReplacesTheMetadataByTheAnswer) {
  RawHttpServer server(std::string(kOk) + "\r\n");
  const auto checker = newChecker();
  const std::string metadata = didlText({resElement("http-get:*:video/mpeg:DLNA.ORG_PN=MPEG1;DLNA.ORG_OP=01",
                                                    server.url("/y"), "size='5' duration='0:01'")});
  const int code = checker->CheckResource(server.url("/x").c_str(), metadata.c_str());
  EXPECT_EQ(outcomeOf(*checker, code), "0 0 video/mpeg [] 01 MPEG1");
  const TarqResourceInfo& info = *checker->GetResource();
  EXPECT_EQ(info.uri, server.url("/y"));
  EXPECT_STREQ(info.size, "5");
  EXPECT_STREQ(info.duration, "0:01");
  EXPECT_STREQ(info.reserved, "");
}

TEST(Checker, LogsItsSteps) {
  RawHttpServer server("HTTP/1.1 503 Busy\r\n\r\n");
  const std::string url = server.url("/x");
  const std::string good = didlText({resElement("http-get:*:audio/mpeg:*", "ftp://h/a")});
  const std::string bad = didlText({resElement("http-get:*:text/plain:*", "http://h/a")});
  const auto checker = newChecker();
  LogCapture log;

  EXPECT_EQ(checker->CheckResource("http://h.example/x", bad.c_str()), 55106);
  EXPECT_THAT(log.take(),
              ElementsAre("3 Tarq: \nInternet Content URL h.example Request", "3 Tarq: \nRes Not Supported"));
  EXPECT_EQ(checker->CheckResource(url.c_str(), good.c_str()), 55100);
  EXPECT_THAT(log.take(), ElementsAre("6 Tarq: Selected Res [0][ftp://h/a][audio/mpeg][*][MP3]",
                                      "3 Tarq: \nHome Network Content URL 127.0.0.1 Request"));
  EXPECT_EQ(checker->CheckResource("http://127.0.0.1:1/", nullptr), 55202);
  EXPECT_THAT(log.take(), ElementsAre("3 Tarq: \nHTTP HEAD FAILED (2103) http://127.0.0.1:1/",
                                      "3 Tarq: \nHome Network Content URL 127.0.0.1 Request"));
}

TEST(Checker, KeepsWhatALaterCheckDoesNotSet) {
  const auto checker = newChecker();
  const std::string first = didlText({resElement("http-get:*:audio/mpeg:DLNA.ORG_OP=01", "a", "size='5'")});
  EXPECT_EQ(checker->CheckResource(nullptr, first.c_str()), 0);
  EXPECT_EQ(outcomeOf(*checker, 0), "0 0 audio/mpeg [DLNA.ORG_OP=01] 01 MP3");
  // Refused: the working values are overwritten, the result texts stay and stay readable.
  const std::string second =
      didlText({resElement("http-get:*:audio/ogg:" + std::string(500, 'x'), "https://h/b")});
  EXPECT_EQ(checker->CheckResource("http://127.0.0.1:1/x", second.c_str()), 55100);
  EXPECT_EQ(outcomeOf(*checker, 0), "0 0 audio/mpeg [DLNA.ORG_OP=01] 01 MP3");
  EXPECT_EQ(checker->CheckResource("http://h.example/x", "http-get:*:video"), 0);
  EXPECT_EQ(outcomeOf(*checker, 0), "0 0 video/* [DLNA.ORG_OP=01] 01 MP3");
  EXPECT_STREQ(checker->GetResource()->size, "5");
}

TEST(Checker, OffersNothingForMetadataThatIsNone) {
  const std::string deep = [] {
    std::string text;
    for (int i = 0; i < 200'000; ++i) text += "<a>";
    return text;
  }();
  const std::string large = "<DIDL-Lite><item>" + std::string(4 << 20, ' ') +
                            resElement("a:*:audio/mpeg:*", "u") + "</item></DIDL-Lite>";
  for (const std::string& metadata :
       {std::string(), std::string("NOT_IMPLEMENTED"), std::string("<DIDL-Lite><item><res"), deep, large,
        std::string("<DIDL-Lite/>"), std::string("<DIDL-Lite><item/></DIDL-Lite>"),
        didlText({"<res>u</res>", "<res protocolInfo='a:::'/>", "<res protocolInfo=''/>"})}) {
    const auto checker = newChecker();
    EXPECT_EQ(checker->CheckResource("http://h.example/", metadata.c_str()), 55106) << metadata.substr(0, 60);
  }
}

}  // namespace
