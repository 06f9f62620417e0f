#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "HeldResources.h"
#include "Program.h"
#include "RawHttpServer.h"
#include "TestRows.h"

namespace {

using testing::ElementsAre;
using testing::StartsWith;

// A line about content that is recognised by its metadata.
std::string line(const std::string& name) {
  return R"({"uri":"http://media.example/)" + name + R"(","metadata":"http-get:*:video"})";
}

std::string accepted(const std::string& name) {
  return R"({"code":0,"uri":"http://media.example/)" + name +
         R"(","mimeType":"video/*","additionalInfo":null,"resIndex":-1,"size":null,"duration":null,)"
         R"("reserved":null,"operation":null,"contentFormat":null})";
}

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
    {"UriNull", R"({"uri":null})", "uri is not a string"},
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
    {"MetadataNull", R"({"uri":"x:","metadata":null})", nullptr},
    {"LowestRegion", R"({"uri":"x:","region":-2147483648})", nullptr},
    {"LastUriCounts", R"({"uri":1,"uri":"x:"})", nullptr},
    {"Escapes", R"({"\u0075ri":"x:","title":"\ud83d\ude00"})", nullptr},
};

TEST_ROWS(Batch, AnswersALineInItsPlace, kLines) {
  const Outcome outcome = batch(line("a") + "\n" + row.line + "\n" + line("b") + "\n", "4");
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.err, "");
  const std::string answer =
      row.problem == nullptr ? kChecked : R"({"code":-1,"message":")" + std::string(row.problem) + "\"}";
  EXPECT_THAT(linesOf(outcome.out), ElementsAre(accepted("a"), StartsWith(answer), accepted("b")));
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

class Pipe {
 public:
  Pipe() {
    if (::pipe2(ends_, O_CLOEXEC) != 0) std::abort();
  }
  ~Pipe() {
    closeRead();
    closeWrite();
  }
  int read() const { return ends_[0]; }
  int write() const { return ends_[1]; }
  void closeRead() { ::close(std::exchange(ends_[0], -1)); }
  void closeWrite() { ::close(std::exchange(ends_[1], -1)); }

  // Reads until the other end closes or so many lines are there.
  std::string take(std::ptrdiff_t lines = PTRDIFF_MAX) const {
    std::string all;
    char piece[4096];
    for (ssize_t count;
         std::ranges::count(all, '\n') < lines && (count = ::read(read(), piece, sizeof piece)) > 0;)
      all.append(piece, static_cast<size_t>(count));
    return all;
  }

 private:
  int ends_[2];
};

// The program with its input still open.
class RunningBatch {
 public:
  RunningBatch() {
    ::fcntl(in_.read(), F_SETFL, O_NONBLOCK);  // as another program that shares the pipe may have set it
    child_ = startProgram({"check", "--batch", "-", "--jobs", "4"}, in_.read(), out_.write(), STDERR_FILENO);
    out_.closeWrite();
  }
  ~RunningBatch() {
    in_.closeWrite();
    waitFor(child_);
  }
  // Returns: the answer to `text`, which ends so many lines.
  std::string answers(const std::string& text, std::ptrdiff_t lines) {
    EXPECT_EQ(::write(in_.write(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
    return out_.take(lines);
  }
  std::string id() const { return std::to_string(child_); }

 private:
  Pipe in_;
  Pipe out_;
  pid_t child_ = -1;
};

TEST(Batch, AnswersBeforeTheInputEnds) {
  RunningBatch program;
  // The beginning of the next line must not hold back the answer.
  for (const std::string name : {"a", "b", "c"}) {
    const std::string question = (name == "a" ? line(name) : line(name).substr(1)) + "\n{";
    EXPECT_EQ(program.answers(question, 1), accepted(name) + "\n");
  }
}

TEST(Batch, ProbesAtOnceAnswersInOrderAndKeepsNothingOpen) {
  std::atomic<int> waiting = 0;
  std::atomic<int> mostWaiting = 0;
  const RawHttpServer server([&](RawHttpServer::Connection& client) {
    mostWaiting = std::max(mostWaiting.load(), ++waiting);
    const int kind = std::stoi(client.request().substr(6)) % 3;  // "HEAD /" and the number
    std::this_thread::sleep_for(std::chrono::milliseconds(2 - kind));
    --waiting;
    if (kind == 0) client.resetOnClose();
    if (kind == 1) client.send("HTTP/1.1 503 X\r\n\r\n");
    if (kind == 2) client.send("HTTP/1.1 200 OK\r\nContent-Type: image/jpeg\r\n\r\nbody");
  });
  RunningBatch program;
  const auto openAfter = [&](int probes) {
    std::string lines;
    std::vector<testing::Matcher<std::string>> expected;
    for (int i = 0; i < probes; ++i) {
      const std::string uri = R"("uri":")" + server.url("/" + std::to_string(i)) + "\"";
      const std::string codes[] = {"55108,", "55107,", "0," + uri};
      lines += R"({"region":1,)" + uri + "}\n";
      expected.emplace_back(StartsWith("{\"code\":" + codes[i % 3]));
    }
    EXPECT_THAT(linesOf(program.answers(lines, probes)), testing::ElementsAreArray(expected));
    return heldBy(program.id());
  };
  const auto atFirst = openAfter(1);
  EXPECT_EQ(mostWaiting, 1);
  auto held = openAfter(1'000);
  // The last answer may come before its threads have ended.
  for (int i = 0; i < 1'000 && held != atFirst; ++i, held = heldBy(program.id())) ::usleep(1000);
  EXPECT_EQ(held, atFirst);
  EXPECT_TRUE(mostWaiting > 1 && mostWaiting <= 4) << mostWaiting;
}

// clang-format off
const struct {
  const char* name;
  rlim_t descriptors;
  const char* command;  // a blank at its end: the URI follows
  size_t accepted;
  const char* complaint;
} kShortages[] = {
    {"FewerJobs", 16, "check --jobs 8 --batch -", 64, "tarq-dmr: jobs lowered from 8 to "},
    {"NoJob", 8, "check --batch -", 0, "tarq-dmr: cannot run even one job: no more than 8 files"},
    {"NoRequest", 5, "check ", 0, "tarq-dmr: cannot ask a server: out of file descriptors"},
    {"NoExplanation", 5, "explain --probe ", 0, "tarq-dmr: cannot ask a server: out of file descriptors"},
};
// clang-format on

TEST_ROWS(Program, DoesNotBlameTheServerForItsOwnShortage, kShortages) {
  const RawHttpServer server("HTTP/1.1 200 OK\r\nContent-Type: audio/mpeg\r\n\r\n");
  const MemoryFile in(R"({"region":1,"uri":")" + server.url() + "\"}\n", 64);
  const MemoryFile out;
  const MemoryFile err;
  const std::string command = row.command;
  const pid_t child =
      startProgram(wordsOf(command.ends_with(' ') ? command + server.url() : command), in.descriptor(),
                   out.descriptor(), err.descriptor(), TARQ_DMR_PROGRAM, row.descriptors);
  EXPECT_EQ(waitFor(child), row.accepted > 0 ? 0 : 2);
  EXPECT_THAT(err.content(), StartsWith(row.complaint));
  const std::vector<std::string> lines = linesOf(out.content());
  EXPECT_EQ(lines.size(), row.accepted);
  EXPECT_THAT(lines, testing::Each(StartsWith("{\"code\":0,")));
}

TEST(Batch, WaitsForAReaderThatIsSlow) {
  constexpr size_t kCount = 2000;
  Pipe out;
  ::fcntl(out.write(), F_SETFL, O_NONBLOCK);
  ::fcntl(out.write(), F_SETPIPE_SZ, 4096);  // far less than is written at a time
  const MemoryFile input(line("a") + "\n", kCount);
  const pid_t child = startProgram({"check", "--batch", "-"}, input.descriptor(), out.write(), STDERR_FILENO);
  out.closeWrite();
  EXPECT_EQ(linesOf(out.take()), std::vector<std::string>(kCount, accepted("a")));
  waitFor(child);
}

TEST(Batch, EndsQuietlyWhenNobodyReads) {
  Pipe out;
  const MemoryFile input(line("a") + "\n", 1'000);
  const MemoryFile err;
  out.closeRead();
  EXPECT_NE(
      waitFor(startProgram({"check", "--batch", "-"}, input.descriptor(), out.write(), err.descriptor())), 0);
  EXPECT_EQ(err.content(), "");
}

}  // namespace
