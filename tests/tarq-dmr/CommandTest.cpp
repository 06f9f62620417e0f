#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "Program.h"
#include "RawHttpServer.h"
#include "TestRows.h"

namespace {

using testing::Contains;
using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;
using Arguments = std::vector<std::string>;

const struct {
  const char* name;
  const char* arguments;
  const char* complaint;
} kWrongUsages[] = {
    {"UnknownCommand", "paly", "paly"},
    {"UnknownTopic", "help paly", "no topic or command paly"},
    {"CheckNothing", "check", "URI or --batch"},
    {"ExplainNothing", "explain", "URI or --batch"},
    {"UriAndBatch", "check a.xyz --batch -", "--batch"},
    {"MetadataAndBatch", "check --metadata - --batch -", "--batch"},
    {"JobsWithoutBatch", "check a.xyz --jobs 2", "--batch"},
    {"NoJobs", "check --batch - --jobs 0", "--jobs"},
    {"TooManyJobs", "check --batch - --jobs 65", "--jobs"},
    {"LogLevel", "sink --log loud", "--log"},
    {"RegionSuffix", "sink --region 1x", "not a 32-bit integer: 1x"},
    {"RegionHexWithoutDigits", "sink --region 0x", "--region"},
    {"RegionTooHigh", "sink --region 2147483648", "--region"},
    {"RegionTooLow", "sink --region -0x80000001", "--region"},
    {"NoMetadataFile", "check a.xyz --metadata /no/file", "/no/file"},
    {"MetadataFolder", "check a.xyz --metadata /", "cannot read /"},
    {"NoFolderForThePage", "explain a.xyz --html /no/file", "cannot write /no/file"},
    {"NoPlugin", "info --plugin /no/plugin.so", "/no/plugin.so"},
    {"NoSuchExport", "sink --plugin " NO_PLUGIN, "GetPluginInfo"},
};

TEST_ROWS(Program, ComplainsInOneLine, kWrongUsages) {
  const Outcome outcome = runProgram(wordsOf(row.arguments));
  EXPECT_EQ(outcome.exitCode, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(linesOf(outcome.err).size(), 1u);
  EXPECT_THAT(outcome.err, AllOf(StartsWith("tarq-dmr: "), HasSubstr(row.complaint)));
}

const struct {
  const char* name;
  const char* status;
  const char* code;
  const char* message;
} kRefusals[] = {{"Busy", "503", "55107", "the server answered 503"},
                 {"Unplayable", "200", "55106", "nothing playable was found"}};

TEST_ROWS(Check, RefusalSaysWhy, kRefusals) {
  const std::string code = row.code;
  const RawHttpServer server("HTTP/1.1 " + std::string(row.status) + " Some\r\n\r\n");
  const Outcome json = runProgram({"check", "--json", server.url(), "--log", "silent"});
  const Outcome text = runProgram({"check", server.url()});
  EXPECT_TRUE(json.exitCode == 1 && text.exitCode == 1);
  EXPECT_EQ(json.out, "{\"code\":" + code + ",\"message\":\"" + row.message + "\"}\n");
  const std::string why = "why: /.*/tarq-dmr explain " + server.url() + " --probe\n";
  EXPECT_THAT(text.out, MatchesRegex("refused \\(" + code + "\\): " + row.message + "\n" + why));
  EXPECT_EQ(json.err, "");
  EXPECT_EQ(text.err, "");
}

TEST(Check, AcceptanceSaysWhatToPlay) {
  const RawHttpServer server(
      "HTTP/1.1 200 OK\r\n"  // without a type, so that the element's own stays
      "contentFeatures.dlna.org: DLNA.ORG_OP=10;A=\"\xFF\\\xC3\xA9\t\xC2\x9B\u202E\"\r\n\r\n");
  const std::string metadata =
      "<DIDL-Lite><item><res size='5'/><res "
      "protocolInfo='http-get:*:video/mpeg:DLNA.ORG_PN=MPEG1;DLNA.ORG_OP=01' "
      "size='7'>" +
      server.url("/v.mpg") + "</res></item></DIDL-Lite>";
  Arguments arguments = {"check", "--metadata", "-", "--region", "1", server.url()};
  const Outcome text = runProgram(arguments, metadata);
  arguments.push_back("--json");
  const Outcome json = runProgram(arguments, metadata);
  EXPECT_TRUE(json.exitCode == 0 && text.exitCode == 0);
  EXPECT_EQ(json.out, R"({"code":0,"uri":")" + server.url("/v.mpg") +
                          R"(","mimeType":"video/mpeg","additionalInfo":"DLNA.ORG_OP=10;A=\")" +
                          "\uFFFD\\\\\u00E9" +
                          R"(\t\u009B\u202E\"","resIndex":1,"size":"7","duration":"","reserved":"",)"
                          R"("operation":"01","contentFormat":"MPEG1"})"
                          "\n");
  EXPECT_THAT(text.out, AllOf(StartsWith("accepted\n"), HasSubstr("A=\"\\xff\\\u00E9\\x09\\u009b\\u202e\""),
                              EndsWith(" MPEG1\n")));
}

TEST(Check, LogRecordIsOneLineThatControlsNothing) {
  const std::string metadata =
      "<DIDL-Lite><item><res protocolInfo='::audio/L16:'>u\x1b\n\u202Eforged</res></item></DIDL-Lite>";
  const std::vector<std::string> lines =
      linesOf(runProgram({"check", "http://h.example/", "--metadata", "-", "--log", "debug"}, metadata).err);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_THAT(lines[0], EndsWith(" Internet Content URL h.example Request"));
  EXPECT_THAT(lines[1], HasSubstr("[u\\x1b\\x0a\\u202eforged]"));
}

TEST(Sink, ListsTheEntriesOfTheRegion) {
  const Outcome raw = runProgram({"sink", "--region", "0x2", "--raw"});
  std::vector<std::string> lines = linesOf(runProgram({"sink", "--region", "2"}).out);
  ASSERT_EQ(lines.size(), 106u);
  EXPECT_EQ(lines.back(), "105 entries");
  std::string joined = lines[0];
  for (size_t i = 1; i < 105; ++i) joined += "," + lines[i];
  EXPECT_EQ(raw.out, joined + "\n");
}

TEST(Info, ShowsTheSameSettingsInBothForms) {
  const std::string human = runProgram({"info"}).out;
  const std::string json = runProgram({"info", "--json"}).out;
  EXPECT_THAT(json, StartsWith("{\"plugin\":{\"version\":[2,0,1],\"company\":"));
  EXPECT_THAT(json, ContainsRegex("\\},\"device\":\\{\"osName\":.*\\},\"controlPoint\":\\{\"xavAv\":"));
  const std::regex setting("\"(\\w+)\":(\"\"|\"([^\"]+)\"|\\w+)");
  size_t settings = 0;
  for (std::sregex_iterator at(json.begin(), json.end(), setting), end; at != end; ++at, ++settings) {
    const std::string value = (*at)[3].matched ? (*at)[3] : (*at)[2];
    EXPECT_THAT(linesOf(human),
                Contains(AllOf(StartsWith("  " + (*at)[1].str() + " "), EndsWith("  " + value))));
  }
  EXPECT_EQ(settings, 3u + 22u + 19u);
}

}  // namespace
