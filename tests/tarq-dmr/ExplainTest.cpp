#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <fstream>
#include <set>

#include "Program.h"
#include "RandomItems.h"
#include "RawHttpServer.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;

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
  const char* region;
  std::vector<const char*> phrases;
} kTelling[] = {
    {"dtcp", "1", {"its MIME type is the CONTENTFORMAT", "not played in this region; would be AVC_TTS in region 2"}},
    {"audio-codecs", "1", {"unknown MIME type; would be AUDIO_MPEG4 without the parameters", "res 1, format MP3"}},
    {"mkv-beside-wmv", "1", {"would be MKV without Windows Media beside it", "res 1, format WMV"}},
    {"multi-picture", "1", {"res 1 is a file of 3 pictures", "no profile name", "res 2, as MPO\n", "no other candidate has this rank"}},
    {"real-media", "16", {"would be MPEG1 in region 1", "res 1, as RMVB"}},
    {"no-fourth-field", "1", {"no fourth protocolInfo field", "skipped: its protocolInfo has no \":\""}},
    {"twelve-equal", "1", {"-10  known profile name; not above 0", "510 points ahead of res 1: position +10, nearest +500"}},
};
// clang-format on

TEST(Explain, TellsWhyEachCaseComesOutAsItDoes) {
  for (const auto& [name, region, phrases] : kTelling) {
    const std::string file = std::string(TARQ_SOURCES "/docs/examples/") + name + ".xml";
    const Outcome outcome =
        runProgram({"explain", "http://192.168.0.7/item", "--metadata", file, "--region", region});
    EXPECT_EQ(outcome.exitCode, 0) << name;
    for (const char* phrase : phrases) EXPECT_THAT(outcome.out, HasSubstr(phrase)) << name;
    for (const std::string& line : linesOf(outcome.out)) {
      const bool foreign = line.find("http-get:") != line.npos;  // a server's protocolInfo may be longer
      EXPECT_TRUE(foreign || line.size() <= 110) << name << ": " << line;
    }
  }
}

std::string textOf(const rapidjson::Value& value) { return value.IsString() ? value.GetString() : "-"; }

// "code winner format MIME-type", as the steps of the explanation led there.
std::string stepsOf(const rapidjson::Document& explained) {
  const std::string code = std::to_string(explained["verdict"]["code"].GetInt());
  if (code != "0") return code;
  if (explained["quick"]["mimeType"].IsString())
    return code + " -1 - " + textOf(explained["quick"]["mimeType"]);
  const auto& contest = explained["contest"];
  const auto winner = contest["winner"].GetUint();
  return code + " " + std::to_string(winner) + " " + textOf(contest["candidates"][winner]["format"]) + " " +
         textOf(explained["res"][winner]["mimeType"]);
}

std::string resultOf(const rapidjson::Document& checked) {
  const std::string code = std::to_string(checked["code"].GetInt());
  if (code != "0") return code;
  return code + " " + std::to_string(checked["resIndex"].GetInt()) + " " + textOf(checked["contentFormat"]) +
         " " + textOf(checked["mimeType"]);
}

// Compares the two commands line by line; notes what came up.
void expectAgreement(const std::string& input, std::set<std::string>& seen) {
  const auto explained = linesOf(runProgram({"explain", "--batch", "-"}, input).out);
  const auto checked = linesOf(runProgram({"check", "--batch", "-"}, input).out);
  const auto asked = linesOf(input);
  ASSERT_EQ(explained.size(), asked.size());
  ASSERT_EQ(checked.size(), asked.size());
  for (size_t i = 0; i < asked.size(); ++i) {
    rapidjson::Document why;
    rapidjson::Document result;
    ASSERT_FALSE(why.Parse(explained[i].c_str()).HasParseError()) << asked[i];
    ASSERT_FALSE(result.Parse(checked[i].c_str()).HasParseError());
    ASSERT_EQ(stepsOf(why), resultOf(result)) << asked[i];
    const auto& contest = why["contest"];
    const bool won = contest.IsObject() && contest["winner"].IsInt();
    if (contest.IsObject()) seen.insert(contest["name"].GetString());
    seen.insert(std::to_string(result["code"].GetInt()) + (won ? " won" : ""));
  }
}

TEST(Explain, AgreesWithTheCheckOnRandomItems) {
  constexpr int kItems = 20'000;
  RandomItems items(20'240'607);
  std::set<std::string> seen;
  std::string input;
  for (int i = 1; i <= kItems && !HasFatalFailure(); ++i) {
    input += items.nextLine();
    if (i % 2'000 != 0) continue;
    expectAgreement(input, seen);
    input.clear();
  }
  // Refused as no http:// URI with a winner and without; refused as unplayable only without; accepted by a
  // contest or by a quick test.
  EXPECT_THAT(seen, testing::UnorderedElementsAre("photo", "mpo", "music", "wma", "video", "wmv", "0 won",
                                                  "0", "55100 won", "55100", "55106"));
}

TEST(Explain, ProbeShowsWhatCameBack) {
  const struct {
    const char* answer;
    int code;
    const char* lookedUp;  // empty: nothing
    std::vector<const char*> phrases;
  } rows[] = {
      {"200 OK\r\nContent-Type: video/mp4",
       0,
       "MIME type \"video/mp4\"",
       {"looked up   MIME type \"video/mp4\"", "accepted (0): no res, format MPEG4\n"}},
      {"200 OK\r\nContent-Type: video/mp4\r\ncontentFeatures.dlna.org: DLNA.ORG_PN=NO\x1B",
       55106,
       "profile name \"NO\x1B\"",
       {"looked up   profile name \"NO\\x1b\"", "status 200, content type video/mp4", "refused (55106)"}},
      {"404 No", 55108, "", {"status 404, content type -", "refused (55108)"}},
      {"503 No", 55107, "", {"answer      the server answered 503\n\nVerdict: refused (55107)"}},
  };
  for (const auto& [answer, code, lookedUp, phrases] : rows) {
    RawHttpServer server("HTTP/1.1 " + std::string(answer) + "\r\n\r\n");
    std::vector<std::string> arguments = {"explain", server.url(), "--region", "1"};
    EXPECT_THAT(runProgram(arguments).out, HasSubstr("Verdict: undecided"));
    EXPECT_EQ(server.requests().size(), 0u);
    arguments.push_back("--probe");
    const Outcome outcome = runProgram(arguments);
    EXPECT_EQ(outcome.exitCode, code == 0 ? 0 : 1) << answer;
    for (const char* phrase : phrases) EXPECT_THAT(outcome.out, HasSubstr(phrase));
    arguments.push_back("--json");
    rapidjson::Document json;
    json.Parse(runProgram(arguments).out.c_str());
    ASSERT_TRUE(json.IsObject());
    EXPECT_EQ(json["verdict"]["code"].GetInt(), code);
    EXPECT_TRUE(*lookedUp == '\0' || textOf(json["probe"]["answer"]["lookedUp"]) == lookedUp) << answer;
  }
}

TEST(Explain, TellsWhatIsMissing) {
  const struct {
    const char* uri;
    const char* metadata;
    std::vector<const char*> phrases;
  } cases[] = {
      {"a.jpg", "<x/>", {"not a URL with a scheme and a host", "there is no URL", "not valid DIDL-Lite"}},
      {"http://a.example/", "<DIDL-Lite/>", {"it has no item or container", "No server is asked: "}},
      {"http://a.example/", "<DIDL-Lite><item/></DIDL-Lite>", {"its first object has no res element"}},
      {"http://a.example/a.mp4", "<x/>", {"Quick tests: accepted", "as video/*, no res chosen"}},
  };
  for (const auto& [uri, metadata, phrases] : cases) {
    const Outcome outcome = runProgram({"explain", uri, "--metadata", "-"}, metadata);
    for (const char* phrase : phrases) EXPECT_THAT(outcome.out, HasSubstr(phrase)) << uri;
  }
  EXPECT_THAT(runProgram({"explain", "http://127.0.0.1:1/a", "--json"}).out, HasSubstr(R"({"code":null,)"));
  EXPECT_THAT(runProgram({"explain", "--batch", "-"}, "{}\n").out, HasSubstr("uri is missing"));
}

TEST(Explain, CheckTellsHowToAskWhy) {
  const Outcome outcome = runProgram({"check", "it's", "--region", "2", "--metadata", "-"}, "<x/>");
  EXPECT_THAT(outcome.out, EndsWith("\nwhy: tarq-dmr explain 'it'\\''s' --metadata '-' --region 2\n"));
}

}  // namespace
