#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "Checker.h"
#include "Didl.h"
#include "LogCapture.h"
#include "RawHttpServer.h"
#include "TestRows.h"

using testing::ElementsAre;

namespace {

struct StringsCase {
  const char* name;
  const char* uri;
  const char* metadata;
  const char* expected;  // the MIME type of a quick acceptance, or the code of a refusal
};

// clang-format off
#define APPLE "application/vnd.apple.mpegURL"
#define HLS "application/x-mpegURL"
#define ITEM(res) "<DIDL-Lite><item>" res "</item></DIDL-Lite>"
const StringsCase kStrings[] = {
    {"InternetVideo", "http://h.example/x", "http-get:*:audio/x http-get:*:video/mp4", "video/*"},
    {"InternetAudio", "http://h.example/x", "http-get:*:audio/mp4", "audio/*"},
    {"HomeIsProbed", "http://127.0.0.1:1/x", "http-get:*:audio/x http-get:*:video/mp4", "55202"},
    {"ApplePlaylist", "http://127.0.0.1:1/x", "http-get:*:" HLS " http-get:*:" APPLE, APPLE},
    {"PlaylistBeforeUri", "http://127.0.0.1:1/m3u8", "http-get:*:" HLS, HLS},
    {"M3u8AnywhereInTheUri", "http://127.0.0.1:1/m3u8/x.mp4", "audio/", "video/*"},
    {"Mp4WithAudio", "http://127.0.0.1:1/a?mp4", "audio/", "audio/*"},
    {"FlvWithoutAudio", "rtsp://127.0.0.1/a.flv", "", "video/*"},
    {"CaseMatters", "http://127.0.0.1:1/a.MP4", "", "55202"},
    {"NoMetadataNoQuickTest", "http://h.example/a.mp4", nullptr, "55106"},
    {"NoUrl", "127.0.0.1/a.mp4", "http-get:*:video", "55106"},
    {"NoHost", "file:///a.mp4", "http-get:*:video", "55106"},
    {"NoUri", nullptr, "http-get:*:video", "55106"},
    {"LeadingZeroIsAName", "http://127.0.0.01:1/x", "http-get:*:video/mp4", "video/*"},
    {"RvuIsNotProbed", "http://127.0.0.1:1/x", "RVUALLIANCE", "55106"},
    {"SchemeInAnyCase", "HTTP://127.0.0.1:1/x", nullptr, "55202"},
    {"NotHttp", "https://127.0.0.1:1/x", nullptr, "55100"},
    // Metadata that offers nothing.
    {"NotImplemented", nullptr, "NOT_IMPLEMENTED", "55106"},
    {"NotWellFormed", nullptr, "<DIDL-Lite><item><res", "55106"},
    {"NoObject", nullptr, "<DIDL-Lite/>", "55106"},
    {"NoRes", nullptr, ITEM(""), "55106"},
    {"NothingInTheRes", nullptr, ITEM("<res>u</res><res protocolInfo=''/>"), "55106"},
    {"OnlyTheFirstObject", nullptr, ITEM("<res/></item><item><res protocolInfo='::audio/L16:'>u</res>"),
     "55106"},
};
// clang-format on

// Nothing listens on port 1: what is not decided from the strings alone ends in 55202 where a
// server is asked.
TEST_ROWS(Checker, DecidesByTheStrings, kStrings) {
  const auto checker = newChecker();
  const int code = checker->CheckResource(row.uri, row.metadata);
  const std::string expected = row.expected;
  EXPECT_EQ(outcomeOf(*checker, code), code == 0 ? "0 -1 " + expected + " [-] - -" : expected);
  EXPECT_TRUE(code != 0 || checker->GetResource()->uri == row.uri) << "not the caller's own string";
}

// The outcome of a check without metadata whose server answers "MIME type|content features".
std::string outcomeOfAnswer(const std::string& answer, int region) {
  const size_t bar = answer.find('|');
  RawHttpServer server("HTTP/1.1 200 OK\r\nContent-Type: " + answer.substr(0, bar) + "\r\n" +
                       (bar == answer.npos ? "" : "contentFeatures.dlna.org: " + answer.substr(bar + 1)) +
                       "\r\n\r\n");
  const auto checker = newChecker(region);
  return outcomeOf(*checker, checker->CheckResource(server.url().c_str(), nullptr));
}

// clang-format off
const OutcomeRow kAnswers[] = {
    {"Type", "video/mp4", "0 -1 video/mp4 [] - MPEG4"},
    {"TypeIsWhole", "video/mp4;codecs=a", "55106"},
    {"NotAType", "video", "55106"},
    {"Profile", "a/b|DLNA.ORG_PN=MPEG1;X=1", "0 -1 a/b [DLNA.ORG_PN=MPEG1;X=1] - MPEG1"},
    {"UnknownProfileEndsIt", "video/mp4|DLNA.ORG_PN=X;ORSA.COM_PN=HD2_60_T", "55106"},
    {"VendorBeforeArib", "a/b|ARIB.OR.JP_PN=X;ORSA.COM_PN=HD2_60_T",
     "0 -1 a/b [ARIB.OR.JP_PN=X;ORSA.COM_PN=HD2_60_T] - MPEG2_TTS"},
    {"TypeIsNotAProfile", "a/b|DLNA.ORG_PN=video/mp4", "55106"},
    {"ProfileIsNotAType", "MP3/MP3", "55106"},
    {"FeaturesDoNotParse", "video/mp4|=", "0 -1 video/mp4 [=] - MPEG4"},
};
// clang-format on

TEST_ROWS(Checker, DecidesTheFormatByTheAnswer, kAnswers) {
  EXPECT_EQ(outcomeOfAnswer(row.input, 2), row.outcome);
}

// The format by the metadata and the format by the server's answer come from tables of their own.
TEST(Checker, PlaysEveryAdvertisedEntryAsTheSameFormat) {
  for (const int region : {2, 16}) {
    newChecker(region);
    std::istringstream list(TarqDmrPluginManager::GetInstance()->GetParams()->GetSinkProtocolInfo());
    for (std::string entry; std::getline(list, entry, ',');) {
      const size_t fourth = entry.rfind(':') + 1;
      if (region == 16 && entry.substr(fourth) != "*") continue;  // has no video profiles
      const std::string mimeType = entry.substr(11, fourth - 12);
      std::vector<std::string> features = {entry.substr(fourth)};
      if (const size_t second = features[0].find("_PN=", 12); second != std::string::npos)
        features.push_back(features[0].substr(features[0].find(';') + 1));
      for (const std::string& feature : features) {
        const std::string metadata =
            didlText({resElement("http-get:*:" + mimeType + ":" + feature, "http://h/a.rm")});
        const auto checker = newChecker(region);
        EXPECT_EQ(checker->CheckResource(nullptr, metadata.c_str()), 0) << entry;
        EXPECT_EQ(
            outcomeOfAnswer(mimeType + "|" + feature, region),
            "0 -1 " + mimeType + " [" + feature + "] - " + checker->GetResource()->contentFormat->c_str());
      }
    }
  }
}

// A `res` element => the request for it, and what comes of an answer of another type.
const OutcomeRow kRequests[] = {
    {"Photo", "image/jpeg:DLNA.ORG_OP=01", "HEAD /y Interactive 0 0 image/x [] 01 JPEG"},
    {"Music", "audio/mpeg:*", "HEAD /y Streaming 0 0 image/x []  MP3"},
    {"Video", "video/mpeg:*", "HEAD /y Streaming 0 0 image/x []  MPEG_Unknown"},
    {"NotChosen", "text/plain:*", "HEAD /x - 55106"},
};

TEST_ROWS(Checker, AsksForTheChosenElementOnly, kRequests) {
  RawHttpServer server("HTTP/1.1 200 OK\r\nContent-Type: image/x\r\n\r\n");
  const auto checker = newChecker();
  const std::string metadata =
      didlText({resElement("http-get:*:" + std::string(row.input), server.url("/y"))});
  const int code = checker->CheckResource(server.url("/x").c_str(), metadata.c_str());
  const std::string request = server.requests().at(0);
  EXPECT_THAT(request, testing::HasSubstr("getcontentFeatures.dlna.org: 1\r\n"));
  std::smatch mode;
  const bool found = std::regex_search(request, mode, std::regex("transferMode.dlna.org: (\\w+)"));
  EXPECT_EQ(request.substr(0, 8) + (found ? mode[1].str() : "-") + " " + outcomeOf(*checker, code),
            row.outcome);
}

// A process of its own under ctest, so that these are its first selections.
TEST(Checker, SelectsOnManyThreadsFromTheStart) {
  const std::string metadata = didlText({resElement("a:*:video/x:DLNA.ORG_PN=MPEG_TS_SD_NA", "a")});
  std::vector<std::unique_ptr<TarqResourceCheckerInterface>> checkers(16);
  for (auto& checker : checkers) checker = newChecker();
  std::vector<std::thread> threads;
  for (auto& checker : checkers) {
    threads.emplace_back([&] { EXPECT_EQ(checker->CheckResource(nullptr, metadata.c_str()), 0); });
  }
  for (std::thread& thread : threads) thread.join();
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
  EXPECT_THAT(log.take(),
              ElementsAre("3 libtarq: HEAD failed (2103): connection refused or server unreachable",
                          "3 Tarq: \nHTTP HEAD FAILED (2103) http://127.0.0.1:1/",
                          "3 Tarq: \nHome Network Content URL 127.0.0.1 Request"));
}

TEST(Checker, KeepsWhatALaterCheckDoesNotSet) {
  const auto checker = newChecker();
  const TarqResourceInfo& info = *checker->GetResource();
  const std::string first = didlText({resElement("http-get:*:audio/mpeg:DLNA.ORG_OP=01", "a", "size='5'")});
  EXPECT_EQ(checker->CheckResource(nullptr, first.c_str()), 0);
  EXPECT_EQ(outcomeOf(*checker, 0), "0 0 audio/mpeg [DLNA.ORG_OP=01] 01 MP3");
  // Refused: the working values are overwritten, the result strings stay and stay readable.
  const std::string second =
      didlText({resElement("http-get:*:audio/ogg:" + std::string(500, 'x'), "https://h/b", "size='6'")});
  EXPECT_EQ(checker->CheckResource("http://127.0.0.1:1/x", second.c_str()), 55100);
  EXPECT_EQ(outcomeOf(*checker, 0), "0 0 audio/mpeg [DLNA.ORG_OP=01] 01 MP3");
  EXPECT_STREQ(info.uri, "a");
  EXPECT_EQ(checker->CheckResource("http://h.example/x", "http-get:*:video"), 0);
  EXPECT_EQ(outcomeOf(*checker, 0), "0 0 video/* [DLNA.ORG_OP=01] 01 MP3");
  EXPECT_STREQ(info.size, "5");
  // Accepted again: nothing of the first one is left.
  const std::string last = didlText({"<res/>", resElement("a:b:image/jpeg:*", "c", "duration='7'")});
  EXPECT_EQ(checker->CheckResource(nullptr, last.c_str()), 0);
  EXPECT_EQ(outcomeOf(*checker, 0), "0 1 image/jpeg [*]  JPEG");
  EXPECT_EQ(std::string(info.uri) + info.size + info.duration + info.reserved, "c7");
}

// Three lines are one: the name of a file, its metadata and the outcome.
TEST(Checker, ChoosesAmongTheElementsOfARealServer) {
  std::ifstream lines(TARQ_TEST_DATA "/minidlna.txt");
  int items = 0;
  for (std::string name, metadata, outcome;
       getline(lines, name) && getline(lines, metadata) && getline(lines, outcome); ++items) {
    const auto checker = newChecker();
    EXPECT_EQ(outcomeOf(*checker, checker->CheckResource(nullptr, metadata.c_str())), outcome) << name;
  }
  EXPECT_EQ(items, 22);
}

}  // namespace
