#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "Checker.h"
#include "DidlText.h"
#include "LogCapture.h"
#include "OutcomeRows.h"
#include "RawHttpServer.h"
#include "TestRows.h"

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

// Nothing listens on port 1: what is not decided from the texts alone ends in 55202 where a server is asked.
TEST_ROWS(Checker, AcceptsQuicklyByTheStrings, kQuick) {
  const auto checker = newChecker();
  const int code = checker->CheckResource(row.uri, row.metadata);
  EXPECT_EQ(outcomeOf(*checker, code), row.expected);
  EXPECT_TRUE(code != 0 || checker->GetResource()->uri == row.uri) << "not the caller's own string";
}

// The metadata offers nothing, so that "MIME type|content features" of the answer tell the format.
TEST(Checker, TellsTheFormatByTheAnswer) {
  const auto outcomeOfAnswer = [](const std::string& answer) {
    const size_t bar = answer.find('|');
    RawHttpServer server("HTTP/1.1 200 OK\r\nContent-Type: " + answer.substr(0, bar) + "\r\n" +
                         (bar == answer.npos ? "" : "contentFeatures.dlna.org: " + answer.substr(bar + 1)) +
                         "\r\n\r\n");
    const auto checker = newChecker(2);
    return outcomeOf(*checker, checker->CheckResource(server.url().c_str(), nullptr));
  };
  // clang-format off
  expectOutcomes(outcomeOfAnswer, {
      "video/mp4 => 0 -1 video/mp4 [] - MPEG4", "video/mp4;codecs=a => 55106", "video => 55106",
      "a/b|DLNA.ORG_PN=MPEG1;X=1 => 0 -1 a/b [DLNA.ORG_PN=MPEG1;X=1] - MPEG1",
      "video/mp4|DLNA.ORG_PN=X;ORSA.COM_PN=HD2_60_T => 55106",  // an unknown profile ends it
      "a/b|ARIB.OR.JP_PN=X;ORSA.COM_PN=HD2_60_T => 0 -1 a/b [ARIB.OR.JP_PN=X;ORSA.COM_PN=HD2_60_T] - MPEG2_TTS",
      "a/b|DLNA.ORG_PN=video/mp4 => 55106", "video/mp4|= => 0 -1 video/mp4 [=] - MPEG4"});
  // clang-format on
}

TEST(Checker, AsksForTheChosenElementOnly) {
  RawHttpServer server("HTTP/1.1 200 OK\r\nContent-Type: image/x\r\n\r\n");
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
  for (const std::string& metadata :
       {std::string(), std::string("NOT_IMPLEMENTED"), std::string("<DIDL-Lite><item><res"),
        std::string("<DIDL-Lite/>"), std::string("<DIDL-Lite><item/></DIDL-Lite>"),
        didlText({"<res>u</res>", "<res protocolInfo='a:::'/>", "<res protocolInfo=''/>"})}) {
    const auto checker = newChecker();
    EXPECT_EQ(checker->CheckResource("http://h.example/", metadata.c_str()), 55106) << metadata;
  }
}

}  // namespace
