#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <fstream>

#include "Program.h"
#include "RawHttpServer.h"
#include "TestRows.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST(Explain, DocumentsShowWhatTheProgramShows) {
  const std::string before = "<!-- tarq-dmr ";
  size_t examples = 0;
  for (const char* document : {"docs/choice.md", "README.md"}) {
    std::ifstream in(TARQ_SOURCES "/" + std::string(document));
    const std::string text(std::istreambuf_iterator<char>(in), {});
    for (size_t at = 0; (at = text.find(before, at)) != text.npos; ++examples) {
      at += before.size();
      const std::string command = text.substr(at, text.find(" -->", at) - at);
      std::vector<std::string> arguments = wordsOf(command);
      for (std::string& word : arguments)
        if (word.starts_with("docs/")) word.insert(0, TARQ_SOURCES "/");
      const size_t begin = text.find("```\n", at) + 4;
      EXPECT_EQ(text.substr(begin, text.find("```", begin) - begin), runProgram(arguments).out)
          << document << ": " << command;
    }
  }
  EXPECT_GE(examples, 3u);
}

// clang-format off
const struct {
  const char* name;
  const char* file;
  const char* region;
  std::vector<const char*> phrases;
} kTelling[] = {
    {"Dtcp", "dtcp", "1",
     {"its MIME type is the CONTENTFORMAT", "not played in this region; would be AVC_TTS in region 2"}},
    {"AudioCodecs", "audio-codecs", "1",
     {"unknown MIME type; would be AUDIO_MPEG4 without the parameters", "res 1, format MP3"}},
    {"MkvBesideWmv", "mkv-beside-wmv", "1",
     {"would be MKV without Windows Media beside it", "res 1, format WMV"}},
    {"MultiPicture", "multi-picture", "1",
     {"res 1 is a file of 3 pictures", "no profile name", "res 2, as MPO\n", "no other candidate has this rank"}},
    {"RealMedia", "real-media", "16", {"would be MPEG1 in region 1", "res 1, as RMVB"}},
    {"NoFourthField", "no-fourth-field", "1",
     {"no fourth protocolInfo field", "skipped: its protocolInfo has no \":\""}},
    {"TwelveEqual", "twelve-equal", "1",
     {"-10  known profile name; not above 0", "510 points ahead of res 1: position +10, nearest +500"}},
};
// clang-format on

TEST_ROWS(Explain, TellsWhyEachCaseComesOutAsItDoes, kTelling) {
  const std::string file = std::string(TARQ_SOURCES "/docs/examples/") + row.file + ".xml";
  const Outcome outcome =
      runProgram({"explain", "http://192.168.0.7/item", "--metadata", file, "--region", row.region});
  EXPECT_EQ(outcome.exitCode, 0);
  for (const char* phrase : row.phrases) EXPECT_THAT(outcome.out, HasSubstr(phrase));
  for (const std::string& line : linesOf(outcome.out)) {
    const bool foreign = line.find("http-get:") != line.npos;  // a server's protocolInfo may be longer
    EXPECT_TRUE(foreign || line.size() <= 110) << line;
  }
}

const struct {
  const char* name;
  std::string answer;
  int code;
  const char* lookedUp;  // null: nothing
  std::vector<const char*> phrases;
} kProbes[] = {
    {"ByType",
     "200 OK\r\nContent-Type: video/mp4",
     0,
     "MIME type \"video/mp4\"",
     {"looked up   MIME type \"video/mp4\"", "accepted (0): no res, format MPEG4\n"}},
    {"ByName",
     "200 OK\r\nContent-Type: video/mp4\r\ncontentFeatures.dlna.org: DLNA.ORG_PN=NO\x1B",
     55106,
     "profile name \"NO\x1B\"",
     {"looked up   profile name \"NO\\x1b\"", "status 200, content type video/mp4", "refused (55106)"}},
    {"NotFound", "404 No", 55108, nullptr, {"status 404, content type -", "refused (55108)"}},
    {"Busy", "503 No", 55107, nullptr, {"answer      the server answered 503\n\nVerdict: refused (55107)"}},
};

TEST_ROWS(Explain, ProbeShowsWhatCameBack, kProbes) {
  RawHttpServer server("HTTP/1.1 " + row.answer + "\r\n\r\n");
  std::vector<std::string> arguments = {"explain", server.url(), "--region", "1"};
  EXPECT_THAT(runProgram(arguments).out, HasSubstr("Verdict: undecided"));
  EXPECT_EQ(server.requests().size(), 0u);
  arguments.push_back("--probe");
  const Outcome outcome = runProgram(arguments);
  EXPECT_EQ(outcome.exitCode, row.code == 0 ? 0 : 1);
  for (const char* phrase : row.phrases) EXPECT_THAT(outcome.out, HasSubstr(phrase));
  arguments.push_back("--json");
  rapidjson::Document json;
  json.Parse(runProgram(arguments).out.c_str());
  ASSERT_TRUE(json.IsObject());
  EXPECT_EQ(json["verdict"]["code"].GetInt(), row.code);
  if (row.lookedUp == nullptr) return;
  EXPECT_STREQ(json["probe"]["answer"]["lookedUp"].GetString(), row.lookedUp);
}

const struct {
  const char* name;
  const char* uri;
  const char* metadata;
  std::vector<const char*> phrases;
} kMissing[] = {
    {"NoUrl",
     "a.jpg",
     "<x/>",
     {"not a URL with a scheme and a host", "there is no URL", "its root element is x"}},
    {"NoObject",
     "http://a.example/",
     "<DIDL-Lite/>",
     {"it has no item or container", "No server is asked: "}},
    {"NoRes", "http://a.example/", "<DIDL-Lite><item/></DIDL-Lite>", {"its first object has no res element"}},
    {"Quick", "http://a.example/a.mp4", "<x/>", {"Quick tests: accepted", "as video/*, no res chosen"}},
};

TEST_ROWS(Explain, TellsWhatIsMissing, kMissing) {
  const Outcome outcome = runProgram({"explain", row.uri, "--metadata", "-"}, row.metadata);
  for (const char* phrase : row.phrases) EXPECT_THAT(outcome.out, HasSubstr(phrase));
}

TEST(Explain, WritesJsonForOneAndForABatch) {
  EXPECT_THAT(runProgram({"explain", "http://127.0.0.1:1/a", "--json"}).out, HasSubstr(R"({"code":null,)"));
  const std::string line = R"({"uri":"http://a.example/a.mp4","metadata":"<x/>","region":)";
  const auto answers =
      linesOf(runProgram({"explain", "--batch", "-"}, line + "1}\n{}\n" + line + "2}\n").out);
  ASSERT_EQ(answers.size(), 3u);
  EXPECT_THAT(answers[0], StartsWith(R"({"region":1,)"));
  EXPECT_EQ(answers[1], R"({"code":-1,"message":"uri is missing"})");
  EXPECT_THAT(answers[2], StartsWith(R"({"region":2,)"));
}

TEST(Explain, CheckTellsHowToAskWhy) {
  const Outcome outcome = runProgram({"check", "it's", "--region", "2", "--metadata", "-"}, "<x/>");
  EXPECT_THAT(outcome.out, EndsWith("\nwhy: tarq-dmr explain 'it'\\''s' --metadata '-' --region 2\n"));
}

}  // namespace
