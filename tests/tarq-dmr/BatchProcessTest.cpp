// A batch as a process among others: what it reads from and writes to, and what ends it.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <thread>

#include "BatchLines.h"
#include "HeldResources.h"
#include "Program.h"
#include "RawHttpServer.h"
#include "TestRows.h"

namespace {

using testing::StartsWith;

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
  EXPECT_EQ(runProgram({"check", "--batch", "-"}, "\xEF\xBB\xBF").out, "");
  RunningBatch program;
  program.answers("\xEF\xBB", 0);  // the first piece of a byte order mark
  // The beginning of the next line must not hold back the answer.
  for (const std::string name : {"a", "b", "c"}) {
    const std::string question = (name == "a" ? "\xBF" + line(name) : line(name).substr(1)) + "\n{";
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

TEST(Batch, EndsWithAWholeLineWhenInterrupted) {
  const LoopbackListener server;  // never answers
  const std::string input = line("a") + "\n" + R"({"uri":")" + server.url("/") + "\"}\n" + line("b") + "\n";
  for (const int signal : {SIGINT, SIGTERM}) {
    const MemoryFile in(input);
    const MemoryFile out;
    const pid_t child =
        startProgram({"check", "--batch", "-"}, in.descriptor(), out.descriptor(), STDERR_FILENO);
    const int asked = ::accept(server.fd(), nullptr, nullptr);
    ::kill(child, signal);
    EXPECT_EQ(waitFor(child), -signal);
    EXPECT_EQ(out.content(), accepted("a") + "\n");
    ::close(asked);
  }
}

TEST(Batch, ShowsProgressOnATerminal) {
  const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  ASSERT_TRUE(::grantpt(terminal) == 0 && ::unlockpt(terminal) == 0);
  const int err = ::open(::ptsname(terminal), O_RDWR | O_NOCTTY | O_CLOEXEC);
  const RawHttpServer server([](RawHttpServer::Connection& client) {
    client.request();
    std::this_thread::sleep_for(std::chrono::milliseconds(250));
  });
  const MemoryFile in(R"({"uri":")" + server.url("/") + "\"}\n", 2);
  const MemoryFile out;
  EXPECT_EQ(waitFor(startProgram({"check", "--batch", "-"}, in.descriptor(), out.descriptor(), err)), 0);
  ::close(err);
  std::string shown;
  char piece[256];
  for (ssize_t count; (count = ::read(terminal, piece, sizeof piece)) > 0;)
    shown.append(piece, static_cast<size_t>(count));
  ::close(terminal);
  EXPECT_THAT(shown,
              testing::MatchesRegex(".*1 lines, [0-9]+ per second, 50 %.*2 lines, [0-9]+ per second, 100 %.*"
                                    "2 lines, [0-9]+ per second, 0\\.[0-9] s: 2 refused\r\n"));
}

}  // namespace
