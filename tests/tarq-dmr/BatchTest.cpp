#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BatchLines.h"
#include "Program.h"
#include "TestRows.h"

namespace {

using testing::ElementsAre;
using testing::StartsWith;

Outcome batch(std::string_view input, const char* jobs = "1") {
  return runProgram({"check", "--batch", "-", "--jobs", jobs}, input);
}

std::string nested(size_t depth) {
  return R"({"uri":"x:","deep":)" + std::string(depth, '[') + std::string(depth, ']') + "}";
}

constexpr const char* kChecked = R"({"code":55106,)";
constexpr const char* kNotJson = "the line is not valid JSON";
constexpr const char* kNotUtf8 = "the line is not valid UTF-8";
constexpr const char* kNotRegion = "region is not a 32-bit integer";

const struct {
  const char* name;
  std::string line;
  const char* problem;  // null: the line is checked
} kLines[] = {
    {"Blank", "  \r", "the line is blank"},
    {"TwoObjects", R"({"uri":"x:"}{})", kNotJson},
    {"NulAtEnd", std::string(R"({"uri":"x:"})") + '\0', kNotJson},
    {"Array", R"(["uri","x:"])", "the line is not a JSON object"},
    {"InnerUri", R"({"more":{"uri":"x:"}})", "uri is missing"},
    {"UriNull", R"({"uri":"x:","uri":null})", "uri is missing"},
    {"NameWithNul", R"({"uri":"x:","x-\u0000":1})", "a string contains a NUL character"},
    {"MetadataNumber", R"({"uri":"x:","metadata":1})", "metadata is neither a string nor null"},
    {"RegionString", R"({"uri":"x:","region":"1"})", kNotRegion},
    {"RegionFraction", R"({"uri":"x:","region":1.0})", kNotRegion},
    {"RegionAbove31Bits", R"({"uri":"x:","region":2147483648})", kNotRegion},
    {"RegionBelow32Bits", R"({"uri":"x:","region":-2147483649})", kNotRegion},
    // Also in a field that is ignored.
    {"CutCharacter", "{\"uri\":\"x:\xC3\"}", kNotUtf8},
    {"Surrogate", "{\"uri\":\"x:\",\"title\":\"\xED\xA0\x80\"}", kNotUtf8},
    {"Overlong", "{\"uri\":\"x:\xF0\x8F\xBF\xBF\"}", kNotUtf8},
    {"AboveUnicode", "{\"uri\":\"x:\xF4\x90\x80\x80\"}", kNotUtf8},
    {"EscapedNul", R"({"uri":"x:\u0000"})", "a string contains a NUL character"},
    {"EscapedSurrogate", R"({"uri":"x:","metadata":"\udc00"})", "a string contains an unpaired surrogate"},
    {"ControlCharacter", "{\"uri\":\"x:\x1F\"}", kNotJson},
    {"Deep", nested(1'000'000), "the line is nested too deeply"},
    {"NotSoDeep", nested(50), nullptr},
    {"LastCharacter", "{\"uri\":\"x:\xF4\x8F\xBF\xBF\"}", nullptr},
    {"CarriageReturn", "{\"uri\":\"x:\"}\r", nullptr},
    {"OtherNulls", R"({"uri":"x:","metadata":null,"region":null})", nullptr},
    {"LowestRegion", R"({"uri":"x:","region":-2147483648})", nullptr},
    {"LastUriCounts", R"({"uri":1,"uri":"x:"})", nullptr},
    {"Escapes", R"({"\u0075ri":"x:","title":"\ud83d\ude00"})", nullptr},
};

TEST_ROWS(Batch, AnswersALineInItsPlace, kLines) {
  const Outcome outcome = batch(line("a") + "\n" + row.line + "\n" + line("b") + "\n", "4");
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.err, "");
  const std::string answer =
      row.problem == nullptr ? kChecked : R"({"code":-1,"message":")" + std::string(row.problem) + "\"";
  EXPECT_THAT(linesOf(outcome.out), ElementsAre(accepted("a"), StartsWith(answer), accepted("b")));
}

constexpr OutcomeRow kRepeated[] = {
    {"Number", R"({"id":-0.10e2 ,"uri":"x:"})", R"("id":-0.10e2)"},
    {"Nested", R"({"uri":"x:","x-a":[{"x-b":"]}\\"}, {"id":"\""}]})",
     R"("x-a":[{"x-b":"]}\\"}, {"id":"\""}])"},
    {"Names", R"({"x-\n" : "\u0041","X-":1,"ids":2,"\u0069d":"q","uri":"x:"})",
     R"("x-\n":"\u0041","id":"q")"},
    {"LastCounts", R"({"id":1,"x-":2,"id":null,"uri":"x:"})", R"("id":null,"x-":2)"},
    {"ReturnsInside", "{\"uri\":\"x:\",\"id\":[\r1]\r}\r", R"("id":[ 1])"},
    {"Terminal", "{\"uri\":\"x:\",\"id\":\"\x7F\u009B\u202E\"}", R"("id":"\u007F\u009B\u202E")"},
    {"InvalidLine", R"({"id":7})", R"({"code":-1,"message":"uri is missing","id":7)"},
};

TEST_ROWS(Batch, RepeatsMembersAtTheEnd, kRepeated) {
  for (const char* command : {"check", "explain"}) {
    const std::string out = runProgram({command, "--batch", "-"}, row.input).out;
    EXPECT_THAT(out, testing::EndsWith(std::string(row.outcome) + "}\n"));
  }
}

TEST(Batch, SummaryCountsByResultAndByFormat) {
  const std::string input = R"({"uri":"x:"})"
                            "\n" +
                            line("a") + "\n{}\n" + line("b") + "\n";
  EXPECT_EQ(runProgram({"check", "--batch", "-", "--summary"}, input).out,
            "  lines   code  result\n      1     -1  not valid input\n      2      0  accepted\n"
            "      1  55106  nothing playable was found\n      4      -  all lines\n\n"
            "  lines  format\n      2  (no name)\n");
  const std::string probed = R"({"uri":"http://127.0.0.1/"})";
  EXPECT_EQ(
      runProgram({"explain", "--batch", "-", "--summary", "--json"}, probed).out,
      R"({"lines":1,"codes":[{"code":null,"message":"undecided: depends on the server's answer","lines":1}],)"
      R"("formats":[{"format":null,"lines":1}]})"
      "\n");
}

TEST(Batch, KeepsTheOrderOfManyLines) {
  std::string input;
  std::vector<std::string> expected;
  for (int i = 0; i < 3'000; ++i) {
    // Every region is answered in a round of its own.
    input += line(std::to_string(i)).replace(0, 1, "{\"region\":" + std::to_string(i % 7 / 5) + ",") + "\n";
    expected.push_back(accepted(std::to_string(i)));
  }
  for (const char* jobs : {"1", "4"}) EXPECT_EQ(linesOf(batch(input, jobs).out), expected) << jobs;
}

TEST(Batch, LineMayBeAsLongAsTheLimit) {
  constexpr size_t kLimit = size_t{32} << 20;
  const auto ofLength = [](size_t length) {
    return R"({"uri":"x:","metadata":")" + std::string(length - 26, 'm') + "\"}";
  };
  const Outcome outcome = batch(ofLength(kLimit) + "\n" + line("a") + "\n" + ofLength(kLimit + 1) + "\n" +
                                line("b") + "\n" + ofLength(3 * kLimit));
  EXPECT_EQ(outcome.exitCode, 0);
  const std::string tooLong = R"({"code":-1,"message":"the line is longer than 32 MiB"})";
  EXPECT_THAT(linesOf(outcome.out),
              ElementsAre(StartsWith(kChecked), accepted("a"), tooLong, accepted("b"), tooLong));
}

TEST(Batch, LineNamesItsRegion) {
  const std::string item =
      R"({"uri":"x:","metadata":"<DIDL-Lite><item>)"
      R"(<res protocolInfo='http-get:*:video/mpeg:DLNA.ORG_PN=DTCP_MPEG_TS_SD_60_L2_T'>x:/v.mpg</res>)"
      R"(</item></DIDL-Lite>")";
  const std::string input = item + "}\n" + item + ",\"region\":1}\n" + item + ",\"region\":2}\n";
  constexpr const char* kPlayed = R"({"code":0,)";
  EXPECT_THAT(linesOf(runProgram({"check", "--batch", "-", "--region", "0x2"}, input).out),
              ElementsAre(StartsWith(kPlayed), StartsWith(kChecked), StartsWith(kPlayed)));
  EXPECT_THAT(linesOf(runProgram({"check", "--batch", "-", "--region", "1"}, input).out),
              ElementsAre(StartsWith(kChecked), StartsWith(kChecked), StartsWith(kPlayed)));
}

TEST(Batch, NeedsNoMoreMemoryForMoreLines) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "a sanitizer keeps freed memory";
#endif
  const auto residentKiB = [](size_t lines) {
    const std::string input = R"({"uri":"x:","metadata":")" + std::string(1000, 'm') + "\"}\n";
    const Outcome outcome = runProgram({"check", "--batch", "-", "--jobs", "4"}, input, lines);
    EXPECT_EQ(linesOf(outcome.out).size(), lines);
    return outcome.maxResidentKiB;
  };
  EXPECT_LT(residentKiB(20'000), residentKiB(2'000) + 2048);  // the lines alone are 20 MB
}

}  // namespace
