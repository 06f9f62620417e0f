// `tarq-dmr renderer` as a program: what it plays, how it ends and how it fails.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#include "ControlPoint.h"
#include "TestRows.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::SizeIs;

const struct {
  const char* name;
  RendererProgram::Options options;
  const char* message;
} kFailures[] = {
    {"PortTaken", {}, "cannot be a renderer at 10.9.0.1:52323"},
    {"NoInterface", {"--interface", "v7"}, "there is no network interface v7"},
    {"NoAddress", {"--interface", "v9"}, "the network interface v9 has no IPv4 address"},
};

TEST_ROWS(Program, FailsInOneLine, kFailures) {
  const Outcome outcome = RendererProgram::fail(row.options);
  EXPECT_EQ(outcome.exitCode, 2);
  EXPECT_THAT(outcome.err, HasSubstr(row.message));
  EXPECT_THAT(linesOf(outcome.err), SizeIs(1));
  EXPECT_EQ(outcome.out, "");
}

const struct {
  const char* name;
  int signal;
} kSignals[] = {{"Terminate", SIGTERM}, {"Interrupt", SIGINT}, {"HangUp", SIGHUP}};

TEST_ROWS(Program, EndsAndLeavesNothing, kSignals) {
  std::string folder = fs::temp_directory_path() / "tarq-test-XXXXXX";
  ASSERT_NE(::mkdtemp(folder.data()), nullptr);
  ::setenv("TMPDIR", folder.c_str(), 1);
  RendererProgram program({"--port", std::to_string(kOtherPort)});
  ::unsetenv("TMPDIR");
  EXPECT_FALSE(fs::is_empty(folder));
  const std::string uri = MediaServer::url("/slow");
  HttpRequest request = sourceRequest(uri, musicDidl(uri));
  request.port = kOtherPort;
  HttpConnection waiting(kOtherPort);
  waiting.send(request.text());
  EXPECT_EQ(program.end(row.signal), 0);
  EXPECT_TRUE(fs::is_empty(folder));
  fs::remove_all(folder);
}

// A string of a line of JSON; the empty string for null.
std::string jsonString(const std::string& json, const std::string& key) {
  const std::string begin = "\"" + key + "\":\"";
  const size_t found = json.find(begin);
  if (found == std::string::npos) return {};
  const size_t from = found + begin.size();
  return json.substr(from, json.find('"', from) - from);
}

// An item of the documentation whose URLs lead to this machine's media server.
std::string itemOf(const fs::path& file) {
  std::stringstream text;
  text << std::ifstream(file).rdbuf();
  return std::regex_replace(text.str(), std::regex("http://[^/<]+/(?=[^<]*</res>)"), MediaServer::url("/"));
}

TEST(Program, PlaysWhatTheCheckChooses) {
  const RendererProgram program(
      {"--port", std::to_string(kOtherPort), "--handler-jar", TEST_JAR, "--player", "SourceHandler"});
  int accepted = 0;
  for (const auto& entry : fs::directory_iterator(TARQ_SOURCES "/docs/examples")) {
    if (entry.path().extension() != ".xml") continue;
    const std::string metadata = itemOf(entry.path());
    const std::string uri = MediaServer::url("/item");
    const Outcome check = runProgram({"check", uri, "--metadata", "-", "--region", "1", "--json"}, metadata);
    HttpRequest set = sourceRequest(uri, metadata);
    HttpRequest ask = actionRequest("AVTransport", "GetCurrentTransportActions", {{"InstanceID", "0"}});
    set.port = ask.port = kOtherPort;
    EXPECT_EQ(set.send().error() == 0, check.exitCode == 0) << entry.path() << check.out;
    if (check.exitCode != 0) continue;
    ++accepted;
    const std::string chosen = jsonString(check.out, "uri") + "\n" + jsonString(check.out, "mimeType") + "\n";
    EXPECT_EQ(ask.send().value("Actions"), chosen + metadata) << entry.path();
  }
  EXPECT_GT(accepted, 5);
}

}  // namespace
