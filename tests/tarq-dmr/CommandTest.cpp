#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <tuple>
#include <utility>

#include "Program.h"
#include "RawHttpServer.h"

namespace {

using testing::Contains;
using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
using Arguments = std::vector<std::string>;

// A command line => what the one line names that it ends with.
TEST(Program, WrongUsageEndsWithTwoAndNamesTheFault) {
  // clang-format off
  const std::pair<const char*, const char*> rows[] = {
      {"paly", "paly"}, {"info --xml", "--xml"}, {"check", "URI or --batch"}, {"explain", "URI or --batch"},
      {"check a.xyz --batch -", "--batch"}, {"check --metadata - --batch -", "--batch"},
      {"check a.xyz --jobs 2", "--batch"}, {"check --batch - --jobs 0", "--jobs"},
      {"check --batch - --jobs 65", "--jobs"}, {"sink --log loud", "--log"}, {"sink --region 1x", "--region"},
      {"sink --region 0x", "--region"}, {"sink --region 2147483648", "--region"},
      {"sink --region -0x80000001", "--region"}, {"check a.xyz --metadata /no/file", "/no/file"},
      {"check a.xyz --metadata /", "cannot read /"}, {"check --batch /no/file", "/no/file"},
      {"info --plugin /no/plugin.so", "/no/plugin.so"}, {"sink --plugin " NO_PLUGIN, "GetPluginInfo"}};
  // clang-format on
  for (const auto& [arguments, complaint] : rows) {
    const Outcome outcome = runProgram(wordsOf(arguments));
    EXPECT_EQ(outcome.exitCode, 2) << arguments;
    EXPECT_EQ(outcome.out, "") << arguments;
    EXPECT_EQ(linesOf(outcome.err).size(), 1u) << arguments;
    EXPECT_THAT(outcome.err, AllOf(StartsWith("tarq-dmr: "), HasSubstr(complaint))) << arguments;
  }
}

TEST(Program, HelpsOnEveryCommand) {
  for (const char* command : {"info", "sink", "check", "explain", "play", "demo"}) {
    const Outcome outcome = runProgram({command, "--help"});
    EXPECT_EQ(outcome.exitCode, 0) << command;
    EXPECT_THAT(outcome.out, AllOf(HasSubstr("--plugin"), HasSubstr("Exit codes"))) << command;
  }
  const Outcome bare = runProgram({});
  EXPECT_EQ(bare.exitCode, 2);
  EXPECT_THAT(bare.err, HasSubstr("check"));
}

TEST(Program, FullDiskIsNoSuccess) {
  const MemoryFile none;
  const int full = ::open("/dev/full", O_WRONLY);
  for (const char* arguments : {"sink", "check --batch -"}) {
    const MemoryFile input("{}\n");
    EXPECT_EQ(waitFor(startProgram(wordsOf(arguments), input.descriptor(), full, none.descriptor())), 2);
  }
  ::close(full);
}

TEST(Program, WorksFromAnotherFolder) {
  namespace fs = std::filesystem;
  const fs::path build = fs::path(TARQ_DMR_PROGRAM).parent_path().parent_path();
  const fs::path moved = fs::temp_directory_path() / ("tarq-dmr-" + std::to_string(::getpid()));
  for (const char* folder : {"bin", "lib"}) fs::create_directories(moved / folder);
  for (const char* file : {"bin/tarq-dmr", "lib/libtarq.so", "lib/libtarq_dmr_plugin.so"})
    fs::copy(build / file, moved / file);
  const MemoryFile out;
  const auto run = [&] {
    return waitFor(startProgram({"sink"}, 0, out.descriptor(), out.descriptor(), moved / "bin/tarq-dmr"));
  };
  EXPECT_EQ(run(), 0) << out.content();
  fs::remove(moved / "lib/libtarq.so");
  EXPECT_NE(run(), 0) << "the library of the build tree was used";
  fs::remove_all(moved);
}

TEST(Check, RefusalSaysWhy) {
  const std::tuple<std::string, std::string, std::string> rows[] = {
      {"503", "55107", "the server answered 503"},
      {"403", "55200", "the server answered 403"},
      {"200", "55106", "nothing playable was found"}};
  for (const auto& [status, code, message] : rows) {
    const RawHttpServer server("HTTP/1.1 " + status + " Some\r\n\r\n");
    const Outcome json = runProgram({"check", "--json", server.url(), "--log", "silent"});
    const Outcome text = runProgram({"check", server.url()});
    EXPECT_TRUE(json.exitCode == 1 && text.exitCode == 1) << status;
    EXPECT_EQ(json.out, "{\"code\":" + code + ",\"message\":\"" + message + "\"}\n");
    EXPECT_EQ(linesOf(text.out)[0], "refused (" + code + "): " + message);
    EXPECT_EQ(json.err, "");
    EXPECT_THAT(text.err, HasSubstr("Home Network Content"));
  }
}

TEST(Check, AcceptanceSaysWhatToPlay) {
  const RawHttpServer server(
      "HTTP/1.1 200 OK\r\n"  // without a type, so that the element's own stays
      "contentFeatures.dlna.org: DLNA.ORG_OP=10;A=\"\xFF\\\xC3\xA9\x1B\"\r\n\r\n");
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
                          R"(\u001B\"","resIndex":1,"size":"7","duration":"","reserved":"",)"
                          R"("operation":"01","contentFormat":"MPEG1"})"
                          "\n");
  EXPECT_THAT(text.out, AllOf(StartsWith("accepted\n"), HasSubstr("\\x1b"), EndsWith(" MPEG1\n")));
}

TEST(Sink, ListsTheEntriesOfTheRegion) {
  const std::pair<const char*, size_t> rows[] = {
      {"0", 4}, {"1", 94}, {"0x2", 105}, {"16", 99}, {"-2147483648", 4}};
  for (const auto& [region, entries] : rows) {
    const Outcome raw = runProgram({"sink", "--region", region, "--raw"});
    std::vector<std::string> lines = linesOf(runProgram({"sink", "--region", region}).out);
    ASSERT_EQ(lines.size(), entries + 1) << region;
    EXPECT_EQ(lines.back(), std::to_string(entries) + " entries") << region;
    std::string joined = lines[0];
    for (size_t i = 1; i < entries; ++i) joined += "," + lines[i];
    EXPECT_EQ(raw.out, joined + "\n") << region;
  }
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
