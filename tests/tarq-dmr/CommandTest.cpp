#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

#include "Program.h"
#include "RawHttpServer.h"

namespace {

using testing::Contains;
using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
using Arguments = std::vector<std::string>;

// Host name, so nothing is asked of a server; no "res" of it plays anywhere.
constexpr const char* kUnplayable = "http://media.example/a.xyz";

struct UsageCase {
  const char* name;
  Arguments arguments;
  const char* complaint;

  friend void PrintTo(const UsageCase& row, std::ostream* out) { *out << row.name; }
};

class Usage : public testing::TestWithParam<UsageCase> {};

TEST_P(Usage, EndsWithTwoAndOneLineThatNamesTheFault) {
  const Outcome outcome = runProgram(GetParam().arguments);
  EXPECT_EQ(outcome.exitCode, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(linesOf(outcome.err).size(), 1u) << outcome.err;
  EXPECT_THAT(outcome.err, AllOf(StartsWith("tarq-dmr: "), HasSubstr(GetParam().complaint)));
}

INSTANTIATE_TEST_SUITE_P(
    , Usage,
    testing::Values(UsageCase{"UnknownCommand", {"paly"}, "paly"},
                    UsageCase{"UnknownOption", {"info", "--xml"}, "--xml"},
                    UsageCase{"CheckOfNothing", {"check"}, "URI or --batch"},
                    UsageCase{"ExplainOfNothing", {"explain"}, "URI or --batch"},
                    UsageCase{"UriAndBatch", {"check", kUnplayable, "--batch", "-"}, "--batch"},
                    UsageCase{"MetadataAndBatch", {"check", "--metadata", "-", "--batch", "-"}, "--batch"},
                    UsageCase{"JobsWithoutBatch", {"check", kUnplayable, "--jobs", "2"}, "--batch"},
                    UsageCase{"NoJobs", {"check", "--batch", "-", "--jobs", "0"}, "--jobs"},
                    UsageCase{"TooManyJobs", {"check", "--batch", "-", "--jobs", "65"}, "--jobs"},
                    UsageCase{"UnknownLogLevel", {"sink", "--log", "loud"}, "--log"},
                    UsageCase{"RegionEmpty", {"sink", "--region", ""}, "--region"},
                    UsageCase{"RegionWithRest", {"sink", "--region", "1x"}, "--region"},
                    UsageCase{"RegionBareHex", {"sink", "--region", "0x"}, "--region"},
                    UsageCase{"RegionTwoSigns", {"sink", "--region", "--1"}, "--region"},
                    UsageCase{"RegionTooLarge", {"sink", "--region", "2147483648"}, "--region"},
                    UsageCase{"RegionTooSmall", {"sink", "--region", "-0x80000001"}, "--region"},
                    UsageCase{
                        "MetadataMissing", {"check", kUnplayable, "--metadata", "/no/file"}, "/no/file"},
                    UsageCase{"MetadataFolder", {"check", kUnplayable, "--metadata", "/"}, "cannot read /"},
                    UsageCase{"BatchMissing", {"check", "--batch", "/no/file"}, "/no/file"},
                    UsageCase{"PluginMissing", {"info", "--plugin", "/no/plugin.so"}, "/no/plugin.so"},
                    UsageCase{"PluginWithoutExports", {"sink", "--plugin", NO_PLUGIN}, "GetPluginInfo"}),
    [](const auto& row) { return std::string(row.param.name); });

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
  int status = 0;
  for (const Arguments& arguments : {Arguments{"sink"}, Arguments{"check", "--batch", "-"}}) {
    const MemoryFile input;
    input.append("{}\n");
    input.rewind();
    ::waitpid(startProgram(arguments, input.descriptor(), full, none.descriptor()), &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 2) << arguments[0];
  }
  ::close(full);
}

TEST(Program, WorksFromAnotherFolder) {
  namespace fs = std::filesystem;
  const fs::path build = fs::path(TARQ_DMR_PROGRAM).parent_path().parent_path();
  const fs::path moved = fs::temp_directory_path() / ("tarq-dmr-" + std::to_string(::getpid()));
  for (const char* folder : {"bin", "lib"}) fs::create_directories(moved / folder);
  fs::copy(build / "bin/tarq-dmr", moved / "bin");
  for (const char* library : {"libtarq.so", "libtarq_dmr_plugin.so"})
    fs::copy(build / "lib" / library, moved / "lib");
  const MemoryFile out;
  int status = -1;
  ::waitpid(startProgram({"sink"}, 0, out.descriptor(), out.descriptor(), moved / "bin/tarq-dmr"), &status,
            0);
  EXPECT_EQ(status, 0) << out.content();
  fs::remove(moved / "lib/libtarq.so");
  ::waitpid(startProgram({"sink"}, 0, out.descriptor(), out.descriptor(), moved / "bin/tarq-dmr"), &status,
            0);
  EXPECT_NE(status, 0) << "the library of the build tree was used";
  fs::remove_all(moved);
}

struct RefusalCase {
  const char* status;
  const char* code;
  const char* message;
};

TEST(Check, RefusalSaysWhy) {
  for (const auto& [status, code, message] : {RefusalCase{"503", "55107", "the server answered 503"},
                                              {"403", "55200", "the server answered 403"},
                                              {"200", "55106", "nothing playable was found"}}) {
    const RawHttpServer server("HTTP/1.1 " + std::string(status) + " Some\r\n\r\n");
    const Outcome json = runProgram({"check", "--json", server.url(), "--log", "silent"});
    const Outcome text = runProgram({"check", server.url()});
    EXPECT_EQ(json.exitCode, 1);
    EXPECT_EQ(text.exitCode, 1);
    EXPECT_EQ(json.out, std::string("{\"code\":") + code + ",\"message\":\"" + message + "\"}\n");
    EXPECT_EQ(linesOf(text.out)[0], std::string("refused (") + code + "): " + message);
    EXPECT_EQ(json.err, "");
    EXPECT_THAT(text.err, HasSubstr("Home Network Content"));
  }
}

TEST(Check, AcceptanceSaysWhatToPlay) {
  const RawHttpServer server(
      "HTTP/1.1 200 OK\r\nContent-Type: video/mpeg\r\n"
      "contentFeatures.dlna.org: DLNA.ORG_OP=10;A=\"\xFF\\\xC3\xA9\x1B\"\r\n\r\n");
  const std::string metadata =
      "<DIDL-Lite><item><res protocolInfo='http-get:*:video/mpeg:DLNA.ORG_PN=MPEG1;DLNA.ORG_OP=01' "
      "size='7'>" +
      server.url("/v.mpg") + "</res></item></DIDL-Lite>";
  const Outcome json =
      runProgram({"check", "--metadata", "-", "--region", "1", "--json", server.url()}, metadata);
  const Outcome text = runProgram({"check", "--metadata", "-", "--region", "1", server.url()}, metadata);
  EXPECT_EQ(json.exitCode, 0);
  EXPECT_EQ(text.exitCode, 0);
  EXPECT_EQ(json.out,
            "{\"code\":0,\"uri\":\"" + server.url("/v.mpg") +
                "\",\"mimeType\":\"video/"
                "mpeg\",\"additionalInfo\":\"DLNA.ORG_OP=10;A=\\\"\uFFFD\\\\\u00E9\\u001B\\\"\","
                "\"resIndex\":0,\"size\":\"7\",\"duration\":\"\",\"reserved\":\"\",\"operation\":\"01\","
                "\"contentFormat\":\"MPEG1\"}\n");
  EXPECT_THAT(text.out, AllOf(StartsWith("accepted\n"), HasSubstr("\\x1b"), EndsWith(" MPEG1\n")));
}

struct SinkCase {
  const char* region;
  size_t entries;
};

TEST(Sink, ListsTheEntriesOfTheRegion) {
  for (const auto& [region, entries] :
       {SinkCase{"0", 4}, {"1", 94}, {"0x2", 105}, {"16", 99}, {"-2147483648", 4}}) {
    const Outcome list = runProgram({"sink", "--region", region});
    const Outcome raw = runProgram({"sink", "--region", region, "--raw"});
    std::vector<std::string> lines = linesOf(list.out);
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
