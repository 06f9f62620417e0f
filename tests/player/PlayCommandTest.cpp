// `tarq-dmr play` and `demo` from outside.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <optional>

#include "DidlDuration.h"
#include "Program.h"
#include "RawHttpServer.h"
#include "TestRows.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using Arguments = std::vector<std::string>;

// Accepted without asking a server; of unknown duration.
constexpr const char* kUri = "http://127.0.0.1/a'b$(c)\"d e.mp4";

Outcome play(Arguments arguments) {
  arguments.insert(arguments.begin(), "play");
  arguments.insert(arguments.end(), {"--metadata", "-"});
  return runProgram(arguments, "<DIDL-Lite/>");
}

TEST(Play, PassesEachUriToTheProgramUnchanged) {
  const MemoryFile notes;
  const RawHttpServer server("HTTP/1.1 200 OK\r\nContent-Type: audio/mpeg\r\n\r\n");
  const Outcome outcome = play({kUri, "--region", "1", "--next", server.url(), "--exec",
                                "sh -c 'echo \"$0\" >> " + notes.path() + "' {uri}"});
  EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
  EXPECT_EQ(notes.content(), std::string(kUri) + "\n" + server.url() + "\n");
  EXPECT_THAT(outcome.out, HasSubstr("track 2: " + server.url() + "\n"));
  EXPECT_THAT(outcome.out, EndsWith("the track is over\n"));
}

const struct {
  const char* name;
  std::vector<int> signals;
  std::string program = "";  // what it does before it waits
} kInterrupts[] = {
    {"Interrupt", {SIGINT}},
    {"Terminate", {SIGTERM}},
    {"HangUp", {SIGHUP}},
    {"Stubborn", {SIGTERM}, "trap \"\" TERM; "},
    {"StubbornAndImpatient", {SIGINT, SIGTERM}, "trap \"\" TERM; "},
};

TEST_ROWS(Play, SignalStopsTheTrackAndItsProgram, kInterrupts) {
  const MemoryFile none, out, err, notes;
  const std::string program = "sh -c '" + row.program + "echo $$ > " + notes.path() + "; sleep 60; true'";
  const pid_t child = startProgram({"play", kUri, "--metadata", "-", "--exec", program}, none.descriptor(),
                                   out.descriptor(), err.descriptor());
  while (!notes.content().ends_with('\n') || linesOf(out.content()).size() < 2) ::usleep(1000);
  for (const int signal : row.signals) ::kill(child, signal);
  EXPECT_EQ(waitFor(child), 0) << err.content();
  EXPECT_THAT(out.content(), EndsWith("stopped\n"));
  EXPECT_NE(::kill(std::stoi(notes.content()), 0), 0);
}

TEST(Demo, PassesEveryStep) {
  const Outcome outcome = runProgram({"demo"});
  EXPECT_EQ(outcome.exitCode, 0) << outcome.out;
  EXPECT_EQ(outcome.err, "");
}

const struct {
  const char* name;
  Arguments arguments;
  int exitCode;
  const char* message;  // part of what it writes
} kFailures[] = {
    {"Refused", {"http://127.0.0.1:1/a"}, 1, "refused (55202)"},
    {"NextRefused",
     {kUri, "--next", "http://127.0.0.1:1/a"},
     1,
     "/tarq-dmr explain http://127.0.0.1:1/a --probe\n"},
    {"HandlerError",
     {kUri, "--handler", "com.orsa.tarq.dlna.TarqRendererHandler"},
     1,
     "SetDataSource failed (2)"},
    {"NoHandler", {kUri, "--handler", "java.lang.Object"}, 1, "SetDataSource failed (3)"},
    {"NoProgram", {kUri, "--exec", "/no/such/program"}, 1, "Start failed (100): Cannot run"},
    {"ProgramFails", {kUri, "--exec", "sh -c 'exit 3'"}, 1, "exit status 3\nuri: http://127.0.0.1/a"},
    {"NextFails",
     {kUri, "--next", "http://h/n.mp4", "--next-metadata", "/dev/null", "--exec", "expr {uri} : .*c"},
     1,
     "exit status 1\nuri: http://h/n.mp4\n"},
    {"FileUri", {"file://h/a.mp4", "--exec", "cat {uri}"}, 1, "SetDataSource failed (9): only http"},
    {"TwoInputs", {kUri, "--next", kUri, "--next-metadata", "-"}, 2, "only one can be standard input"},
    {"OwnHandler", {kUri, "--handler-jar", TEST_JAR, "--handler", "EchoHandler"}, 0, "over"},
    {"NoSuchClass", {kUri, "--handler", "no.Such"}, 2, "no.Such"},
    {"NoSuchJar", {kUri, "--handler-jar", "/no/such.jar"}, 2, "/no/such.jar"},
    {"HandlerWithoutPrograms", {kUri, "--handler", "java.lang.Object", "--exec", "x"}, 2, "java.lang.Object"},
    {"MpvRunsNoPrograms", {kUri, "--player", "mpv", "--exec", "x"}, 2, "MpvRendererHandler runs no"},
    {"OptionsWithoutMpv", {kUri, "--mpv-option=--fs"}, 2, "takes no options for mpv"},
    {"WordForMpv", {kUri, "--mpv-option=fs"}, 2, "begins with -: fs"},
    {"NoUri", {}, 2, "a URI is required"},
};

TEST_ROWS(Play, FailsInWords, kFailures) {
  const Outcome outcome = play(row.arguments);
  EXPECT_EQ(outcome.exitCode, row.exitCode) << outcome.err;
  EXPECT_THAT(outcome.out + outcome.err, HasSubstr(row.message));
}

constexpr OutcomeRow kDurations[] = {
    {"Fraction", "0:00:00.4", "400"},
    {"Hours", "1:02:03", "3723000"},
    {"FractionOfManyDigits", "0:00:01.25999", "1259"},
    {"Ratio", "0:00:01.1/3", "1333"},
    {"AboveInt", "600:00:00", "2147483647"},
    {"Empty", "", "0"},
    {"NegativeHours", "-1:00:00", "0"},
    {"NegativeMinutes", "0:-1:00", "0"},
    {"SixtySeconds", "0:00:60", "0"},
    {"SixtyMinutes", "0:60:00", "0"},
    {"NoSeconds", "0:00", "0"},
    {"EmptyFraction", "0:00:00.", "0"},
    {"RatioOfOne", "0:00:00.3/3", "0"},
    {"DivisionByZero", "0:00:00.1/0", "0"},
    {"HoursAbove31Bits", "99999999999:00:00", "0"},
    {"Rest", "0:00:00x", "0"},
    {"FractionAbove31Bits", "0:00:00.12345678901", "123"},
};

TEST_ROWS(Play, ReadsDurations, kDurations) {
  EXPECT_EQ(std::to_string(parseDurationMs(row.input)), row.outcome);
}

// Changes an environment variable for as long as this exists.
class ChangedVariable {
 public:
  ChangedVariable(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    ::setenv(name, value, 1);
  }
  ~ChangedVariable() { before_ ? ::setenv(name_, before_->c_str(), 1) : ::unsetenv(name_); }

 private:
  const char* name_;
  std::optional<std::string> before_;
};

TEST(Play, NeedsAJavaVm) {
  const ChangedVariable path("PATH", "");
  const ChangedVariable home("JAVA_HOME", "/no/java");
  const Outcome outcome = play({kUri});
  EXPECT_EQ(outcome.exitCode, 2);
  EXPECT_EQ(outcome.err, "tarq-dmr: no Java VM was found in JAVA_HOME, /no/java\n");
  EXPECT_EQ(outcome.out, "");
}

TEST(Play, NeedsMpvForMpv) {
  const ChangedVariable path("PATH", "/no/folder");
  const Outcome outcome = play({kUri, "--player", "mpv"});
  EXPECT_EQ(outcome.exitCode, 2);
  EXPECT_THAT(outcome.err, HasSubstr("Cannot run program \"mpv\""));
}

}  // namespace
