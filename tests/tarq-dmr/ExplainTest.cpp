#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

struct Choice {
  std::string name;
  std::string region;
  std::string res;
  std::string explained;  // one step of it
};

// A line "== name region" begins a choice, a line "<res ..." is one of its elements.
const std::vector<Choice> kChoices = [] {
  std::vector<Choice> choices;
  std::ifstream lines(TARQ_SOURCES "/tests/data/explain.txt");
  for (std::string line; getline(lines, line);) {
    if (line.starts_with("== ")) {
      choices.push_back({wordsOf(line)[1], wordsOf(line)[2], "", ""});
    } else {
      (line.starts_with("<res") ? choices.back().res : choices.back().explained) += line + "\n";
    }
  }
  return choices;
}();

TEST_ROWS(Explain, SaysOfEachResWhatDecided, kChoices) {
  const Outcome outcome =
      runProgram({"explain", "http://192.168.0.7/item", "--metadata", "-", "--region", row.region},
                 "<DIDL-Lite><item>" + row.res + "</item></DIDL-Lite>");
  EXPECT_THAT(outcome.out, HasSubstr(row.explained));
}

// clang-format off
const struct {
  const char* name;
  std::string answer;
  const char* code;
  const char* phrase;
  const char* json;
} kProbes[] = {
    {"ByType", "200 OK\r\nContent-Type: video/mp4", "0", "accepted (0): no res, format MPEG4\n",
     R"("lookedUp":"MIME type \"video/mp4\"")"},
    {"ByName", "200 OK\r\nContent-Type: a/b\r\ncontentFeatures.dlna.org: DLNA.ORG_PN=NO\tX", "55106",
     "looked up   profile name \"NO\\x09X\"", R"("lookedUp":"profile name \"NO\tX\"")"},
    {"NotFound", "404 No", "55108", "status 404, content type -", R"("lookedUp":"nothing: the server sent neither")"},
    {"Busy", "503 No", "55107", "answer      the server answered 503\n\nVerdict: refused (55107)", R"("sent":true,"answer":{})"},
};
// clang-format on

TEST_ROWS(Explain, ProbeShowsWhatCameBack, kProbes) {
  RawHttpServer server("HTTP/1.1 " + row.answer + "\r\n\r\n");
  std::vector<std::string> arguments = {"explain", server.url(), "--region", "1"};
  const Outcome unasked = runProgram(arguments);
  EXPECT_EQ(unasked.exitCode, 0);
  EXPECT_THAT(unasked.out, HasSubstr("Verdict: undecided"));
  EXPECT_EQ(server.requests().size(), 0u);
  arguments.push_back("--probe");
  EXPECT_THAT(runProgram(arguments).out, HasSubstr(row.phrase));
  arguments.push_back("--json");
  const Outcome json = runProgram(arguments);
  EXPECT_EQ(json.exitCode, row.code == std::string("0") ? 0 : 1);
  EXPECT_THAT(json.out,
              AllOf(HasSubstr("\"verdict\":{\"code\":" + std::string(row.code)), HasSubstr(row.json)));
}

// clang-format off
const struct {
  const char* name;
  const char* uri;
  const char* metadata;
  const char* phrase;
} kMissing[] = {
    {"NoUrl", "a.jpg", "<x/>", "there is no URL"},
    {"Ipv6", "http://[::1]/", "<x/>", ": an IPv6 address"},
    {"Empty", "a.jpg", " ", "it is empty"},
    {"Json", "a.jpg", "{}", "it is JSON"},
    {"Html", "a.jpg", "<!DOCTYPE html><html/>", "it is an HTML page"},
    {"Malformed", "a.jpg", "<a>\n<b></a>", "it is not well-formed at line 2, column 6"},
    {"OtherRoot", "a.jpg", "<x/>", "its root element is x, not DIDL-Lite"},
    {"Escaped", "a.jpg", "&lt;DIDL-Lite/&gt;", "it has no item or container"},
    {"InEnvelope", "a.jpg", "<s:Envelope><a><CurrentURIMetaData>&lt;DIDL-Lite/&gt;</CurrentURIMetaData></a></s:Envelope>",
     "it has no item or container"},
    {"NoObject", "http://a.example/", "<DIDL-Lite/>", "it has no item or container"},
    {"NoRes", "http://a.example/", "<DIDL-Lite><item/></DIDL-Lite>", "its first object has no res element"},
    {"Internet", "http://a.example/", "<x/>", "No server is asked: only servers on the home network are asked"},
    {"Rvu", "http://127.0.0.1/", "RVUALLIANCE", "No server is asked: RVU content is never probed"},
    {"UnusableUrl", "http://127.0.0.1:99999/", "<x/>", "Verdict: refused (55108): not a usable URL\n"},
    {"QuickTest", "http://a.example/a.mp4", "<x/>", "as video/*, no res chosen"},
};
// clang-format on

TEST_ROWS(Explain, TellsWhatIsMissing, kMissing) {
  EXPECT_THAT(runProgram({"explain", row.uri, "--probe", "--metadata", "-"}, row.metadata).out,
              HasSubstr(row.phrase));
}

const struct {
  const char* name;
  std::string metadata;
  size_t times;
  const char* phrase;
} kHostile[] = {
    {"Tags", "<a><a><a><a><a><a><a><a>", 170'000, R"("state":"tooManyTags")"},
    {"EqualSigns", "<a b='" + std::string(70'000, '=') + "'/>", 1, R"("state":"tooManyEqualSigns")"},
    {"ControlCharacters",
     "<DIDL-Lite><item><res protocolInfo='::audio/L16" + std::string(4'000'000, '\1') +
         ":'>u</res></item></DIDL-Lite>",
     1, "\\u0001\\u0001"},
};

TEST_ROWS(Explain, IsAnsweredInLittleMemory, kHostile) {
  const Outcome outcome =
      runProgram({"explain", "http://a.example/", "--metadata", "-", "--json"}, row.metadata, row.times);
  EXPECT_THAT(outcome.out, HasSubstr(row.phrase));
  EXPECT_TRUE(outcome.maxResidentKiB <= 65'536 || !TARQ_COSTS_COUNT) << outcome.maxResidentKiB << " KiB";
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
  EXPECT_THAT(outcome.out, EndsWith("/tarq-dmr explain 'it'\\''s' --metadata - --region 2"
                                    "  # with the same metadata on standard input\n"));
}

}  // namespace
