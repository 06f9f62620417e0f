// `tarq-dmr play` and `demo` from outside.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include "DidlDuration.h"
#include "OutcomeRows.h"
#include "Program.h"
#include "RawHttpServer.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using Arguments = std::vector<std::string>;

// Accepted without asking a server; nothing is known of its duration.
constexpr const char* kUri = "http://127.0.0.1/a'b$(c)\"d e.mp4";

Outcome play(Arguments arguments) {
  arguments.insert(arguments.begin(), "play");
  arguments.insert(arguments.end(), {"--metadata", "-"});
  return runProgram(arguments, "<DIDL-Lite/>");
}

TEST(Play, GivesTheProgramEachUriAsItIs) {
  const MemoryFile notes;
  const RawHttpServer server("HTTP/1.1 200 OK\r\nContent-Type: audio/mpeg\r\n\r\n");
  const Outcome outcome = play({kUri, "--region", "1", "--next", server.url(), "--exec",
                                "sh -c 'echo \"$0\" >> " + notes.path() + "' {uri}"});
  EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
  EXPECT_EQ(notes.content(), std::string(kUri) + "\n" + server.url() + "\n");
  EXPECT_THAT(outcome.out, EndsWith("the track is over\n"));
}

TEST(Play, InterruptStopsTheTrackAndItsProgram) {
  const MemoryFile none, out, err, notes;
  const pid_t child = startProgram(
      {"play", kUri, "--metadata", "-", "--exec", "sh -c 'echo $$ > " + notes.path() + "; sleep 60; true'"},
      none.descriptor(), out.descriptor(), err.descriptor());
  while (!notes.content().ends_with('\n') || out.content().empty()) ::usleep(1000);
  ::kill(child, SIGINT);
  EXPECT_EQ(waitFor(child), 0) << err.content();
  EXPECT_THAT(out.content(), EndsWith("stopped\n"));
  EXPECT_NE(::kill(std::stoi(notes.content()), 0), 0);
}

TEST(Demo, ComesOutAsItShould) {
  const Outcome outcome = runProgram({"demo"});
  EXPECT_EQ(outcome.exitCode, 0) << outcome.out;
  EXPECT_EQ(outcome.err, "");
}

const struct {
  const char* name;
  Arguments arguments;
  int exitCode;
  const char* message;  // in what it writes
} kFailures[] = {
    {"Refused", {"http://127.0.0.1:1/a"}, 1, "refused (55202)"},
    {"NextRefused", {kUri, "--next", "http://127.0.0.1:1/a"}, 1, "refused (55202)"},
    {"HandlerError",
     {kUri, "--handler", "com.orsa.tarq.dlna.TarqRendererHandler"},
     1,
     "SetDataSource failed (2)"},
    {"NoHandler", {kUri, "--handler", "java.lang.Object"}, 1, "SetDataSource failed (3)"},
    {"NoProgram", {kUri, "--exec", "/no/such/program"}, 1, "Start failed (100)"},
    {"OwnHandler", {kUri, "--handler-jar", TEST_JAR, "--handler", "EchoHandler"}, 0, "over"},
    {"NoSuchClass", {kUri, "--handler", "no.Such"}, 2, "no.Such"},
    {"NoSuchJar", {kUri, "--handler-jar", "/no/such.jar"}, 2, "/no/such.jar"},
    {"HandlerWithoutPrograms", {kUri, "--handler", "java.lang.Object", "--exec", "x"}, 2, "java.lang.Object"},
    {"NoUri", {}, 2, "uri"},
};

TEST(Play, FailsInWords) {
  for (const auto& [name, arguments, exitCode, message] : kFailures) {
    const Outcome outcome = play(arguments);
    EXPECT_EQ(outcome.exitCode, exitCode) << name << "\n" << outcome.err;
    EXPECT_THAT(outcome.out + outcome.err, HasSubstr(message)) << name;
  }
}

TEST(Play, ReadsDurations) {
  const auto milliseconds = [](const char* text) { return std::to_string(parseDurationMs(text)); };
  expectOutcomes(milliseconds,
                 {"0:00:00.4 => 400", "1:02:03 => 3723000", "0:00:01.25999 => 1259", "0:00:01.1/3 => 1333",
                  "600:00:00 => 2147483647", " => 0", "-1:00:00 => 0", "0:-1:00 => 0", "0:00:60 => 0",
                  "0:60:00 => 0", "0:00 => 0", "0:00:00. => 0", "0:00:00.3/3 => 0", "0:00:00.1/0 => 0",
                  "99999999999:00:00 => 0", "0:00:00x => 0", "0:00:00.12345678901 => 123"});
}

TEST(Play, NeedsAJavaVm) {
  ::setenv("PATH", "", 1);
  ::setenv("JAVA_HOME", "/no/java", 1);
  const Outcome outcome = play({kUri});
  EXPECT_EQ(outcome.exitCode, 2);
  EXPECT_EQ(outcome.err, "tarq-dmr: no Java VM was found in JAVA_HOME, /no/java\n");
  EXPECT_EQ(outcome.out, "");
}

}  // namespace
