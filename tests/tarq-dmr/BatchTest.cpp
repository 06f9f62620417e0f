#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "HeldResources.h"
#include "Program.h"
#include "RawHttpServer.h"

namespace {

using testing::HasSubstr;
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

struct LineCase {
  const char* name;
  std::string line;
  const char* answer;  // its beginning
};

std::string nested(size_t depth) {
  return R"({"uri":"x:","deep":)" + std::string(depth, '[') + std::string(depth, ']') + "}";
}

constexpr const char* kInvalid = R"({"code":-1,"message":")";
constexpr const char* kChecked = R"({"code":55106,)";

const LineCase kLines[] = {
    {"Blank", "", R"({"code":-1,"message":"the line is blank"})"},
    {"Spaces", "  \r", kInvalid},
    {"NoJson", "uri", kInvalid},
    {"CutShort", R"({"uri":"x:")", kInvalid},
    {"TwoValues", R"({"uri":"x:"}{})", kInvalid},
    {"NulAfterIt", std::string(R"({"uri":"x:"})") + '\0', kInvalid},
    {"Array", R"(["uri","x:"])", kInvalid},
    {"Text", R"("uri")", kInvalid},
    {"NoUri", R"({"metadata":null})", R"({"code":-1,"message":"uri is missing"})"},
    {"UriNested", R"({"more":{"uri":"x:"}})", kInvalid},
    {"UriNull", R"({"uri":null})", kInvalid},
    {"UriArray", R"({"uri":["x:"]})", kInvalid},
    {"UriTrue", R"({"uri":true})", kInvalid},
    {"MetadataNumber", R"({"uri":"x:","metadata":1})", kInvalid},
    {"RegionText", R"({"uri":"x:","region":"1"})", kInvalid},
    {"RegionNull", R"({"uri":"x:","region":null})", kInvalid},
    {"RegionFraction", R"({"uri":"x:","region":1.0})", kInvalid},
    {"RegionTooLarge", R"({"uri":"x:","region":2147483648})", kInvalid},
    {"RegionFarTooLarge", R"({"uri":"x:","region":18446744073709551615})", kInvalid},
    {"RegionTooSmall", R"({"uri":"x:","region":-2147483649})", kInvalid},
    {"BadUtf8", "{\"uri\":\"x:\xC3\"}", kInvalid},
    {"BadUtf8Elsewhere", "{\"uri\":\"x:\",\"title\":\"\xED\xA0\x80\"}", kInvalid},
    {"BadUtf8TooLong", "{\"uri\":\"x:\xF0\x8F\xBF\xBF\"}", kInvalid},
    {"BadUtf8TooLarge", "{\"uri\":\"x:\xF4\x90\x80\x80\"}", kInvalid},
    {"Utf8OfFourBytes", "{\"uri\":\"x:\xF4\x8F\xBF\xBF\"}", kChecked},
    {"NulEscape", R"({"uri":"x:\u0000"})", kInvalid},
    {"LowSurrogate", R"({"uri":"x:","metadata":"\udc00"})", kInvalid},
    {"ControlCharacter", "{\"uri\":\"x:aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\x1F\"}", kInvalid},
    {"NestedTooDeeply", nested(1'000'000), kInvalid},
    {"Nested", nested(50), kChecked},
    {"WindowsLineEnd", "{\"uri\":\"x:\"}\r", kChecked},
    {"MetadataNull", R"({"uri":"x:","metadata":null})", kChecked},
    {"SmallestRegion", R"({"uri":"x:","region":-2147483648})", kChecked},
    {"LastOfEqualKeys", R"({"uri":1,"uri":"x:"})", kChecked},
    {"EscapedKey", R"({"\u0075ri":"x:","title":"\ud83d\ude00"})", kChecked},
};

TEST(Batch, AnswersEveryLineInItsPlace) {
  std::string input;
  for (const LineCase& row : kLines) input += row.line + "\n" + line(row.name) + "\n";
  for (const char* jobs : {"1", "4"}) {
    const Outcome outcome = batch(input, jobs);
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.err, "");
    const std::vector<std::string> answers = linesOf(outcome.out);
    ASSERT_EQ(answers.size(), 2 * std::size(kLines));
    for (size_t i = 0; i < std::size(kLines); ++i) {
      EXPECT_THAT(answers[2 * i], StartsWith(kLines[i].answer)) << kLines[i].name;
      EXPECT_EQ(answers[2 * i + 1], accepted(kLines[i].name));
    }
  }
}

TEST(Batch, SeveralJobsCheckAtOnceAndAnswerInOrder) {
  std::atomic<int> answered = 0;
  std::atomic<int> waiting = 0;
  std::atomic<int> mostWaiting = 0;
  const RawHttpServer server([&](RawHttpServer::Connection& client) {
    mostWaiting = std::max(mostWaiting.load(), ++waiting);
    std::this_thread::sleep_for(std::chrono::milliseconds(answered++ % 3 * 20));
    --waiting;
    client.send("HTTP/1.1 200 OK\r\nContent-Type: image/jpeg\r\n\r\n");
  });
  std::string input;
  for (int i = 0; i < 24; ++i)
    input += R"({"region":1,"uri":")" + server.url("/" + std::to_string(i)) + "\"}\n";
  const Outcome one = batch(input, "1");
  EXPECT_EQ(mostWaiting, 1);
  const Outcome four = batch(input, "4");
  EXPECT_GT(mostWaiting, 1);
  EXPECT_LE(mostWaiting, 4);
  EXPECT_EQ(one.out, four.out);
  const std::vector<std::string> answers = linesOf(four.out);
  ASSERT_EQ(answers.size(), 24u);
  for (size_t i = 0; i < answers.size(); ++i)
    EXPECT_THAT(answers[i], HasSubstr("/" + std::to_string(i) + "\""));
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
              testing::ElementsAre(StartsWith(kChecked), accepted("a"), tooLong, accepted("b"), tooLong));
}

TEST(Batch, LineNamesItsRegion) {
  const std::string item =
      R"({"uri":"x:","metadata":"<DIDL-Lite><item>)"
      R"(<res protocolInfo='http-get:*:video/mpeg:DLNA.ORG_PN=DTCP_MPEG_TS_SD_60_L2_T'>x:/v.mpg</res>)"
      R"(</item></DIDL-Lite>")";
  const std::string input =
      item + "}\n" + item + ",\"region\":1}\n" + item + ",\"region\":2}\n" + item + "}\n";
  const auto codes = [&](const char* region) {
    std::string all;
    for (const auto& answer : linesOf(runProgram({"check", "--batch", "-", "--region", region}, input).out)) {
      all += answer.substr(0, answer.find(','));
    }
    return all;
  };
  EXPECT_EQ(codes("0x2"), R"({"code":0{"code":55106{"code":0{"code":0)");
  EXPECT_EQ(codes("1"), R"({"code":55106{"code":55106{"code":0{"code":55106)");
}

TEST(Batch, NeedsNoMoreMemoryForMoreLines) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "a sanitizer keeps freed memory";
#endif
  const auto residentKiB = [](size_t lines) {
    const MemoryFile input;
    const std::string one = R"({"uri":"x:","metadata":")" + std::string(1000, 'm') + "\"}\n";
    for (size_t i = 0; i < lines; ++i) input.append(one);
    const Outcome outcome = runProgram({"check", "--batch", "-", "--jobs", "4"}, input);
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
    ::waitpid(child_, nullptr, 0);
  }
  // What comes back for `text`, which ends so many lines.
  std::string answers(const std::string& text, std::ptrdiff_t lines) {
    EXPECT_EQ(::write(in_.write(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
    std::string all;
    for (char piece[4096]; std::ranges::count(all, '\n') < lines;) {
      const ssize_t count = ::read(out_.read(), piece, sizeof piece);
      if (count <= 0) break;
      all.append(piece, static_cast<size_t>(count));
    }
    return all;
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

TEST(Batch, KeepsNothingOpenBehindItsProbes) {
  std::atomic<int> asked = 0;
  const RawHttpServer server([&](RawHttpServer::Connection& client) {
    const int kind = asked++ % 4;
    if (kind == 0) client.resetOnClose();
    if (kind > 1) client.send(kind == 2 ? "HTTP/1.1 503 X\r\n\r\n" : "HTTP/1.1 200 OK\r\n\r\nbody");
  });
  RunningBatch program;
  const auto openAfter = [&](int probes) {
    std::string lines;
    for (int i = 0; i < probes; ++i) lines += R"({"uri":")" + server.url() + "\"}\n";
    EXPECT_EQ(std::ranges::count(program.answers(lines, probes), '\n'), probes);
    return heldBy(program.id());
  };
  const auto atFirst = openAfter(1);
  EXPECT_EQ(openAfter(1'000), atFirst);
}

TEST(Batch, WaitsForAReaderThatIsSlow) {
  constexpr size_t kCount = 2000;
  Pipe out;
  ::fcntl(out.write(), F_SETFL, O_NONBLOCK);
  ::fcntl(out.write(), F_SETPIPE_SZ, 4096);  // far less than is written at a time
  const MemoryFile input;
  for (size_t i = 0; i < kCount; ++i) input.append(line("a") + "\n");
  input.rewind();
  const pid_t child = startProgram({"check", "--batch", "-"}, input.descriptor(), out.write(), STDERR_FILENO);
  out.closeWrite();
  std::string answers;
  char block[4096];
  for (ssize_t count; (count = ::read(out.read(), block, sizeof block)) > 0;)
    answers.append(block, static_cast<size_t>(count));
  EXPECT_EQ(linesOf(answers), std::vector<std::string>(kCount, accepted("a")));
  ::waitpid(child, nullptr, 0);
}

TEST(Batch, CountsTheLinesOnATerminal) {
  const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
  ASSERT_TRUE(::grantpt(terminal) == 0 && ::unlockpt(terminal) == 0);
  const int screen = ::open(::ptsname(terminal), O_RDWR | O_NOCTTY);
  const MemoryFile input, out;
  input.append(line("a") + "\n\n");
  input.rewind();
  ::waitpid(startProgram({"check", "--batch", "-"}, input.descriptor(), out.descriptor(), screen), nullptr,
            0);
  char shown[256] = {};
  EXPECT_GT(::read(terminal, shown, sizeof shown - 1), 0);
  EXPECT_THAT(shown, HasSubstr("2 lines, "));
  ::close(screen);
  ::close(terminal);
}

TEST(Batch, EndsQuietlyWhenNobodyReads) {
  Pipe out;
  const MemoryFile input;
  const MemoryFile err;
  for (int i = 0; i < 1000; ++i) input.append(line("a") + "\n");
  input.rewind();
  const pid_t child =
      startProgram({"check", "--batch", "-"}, input.descriptor(), out.write(), err.descriptor());
  out.closeWrite();
  out.closeRead();
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(err.content(), "");
  EXPECT_NE(status, 0);
}

}  // namespace
