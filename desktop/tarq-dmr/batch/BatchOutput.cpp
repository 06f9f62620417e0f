#include "BatchOutput.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "CommandError.h"

namespace {

using namespace std::chrono_literals;

constexpr size_t kPieceBytes = size_t{256} << 10;
constexpr auto kFlushInterval = 100ms;
constexpr auto kProgressInterval = 200ms;

void writeAll(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes.remove_prefix(static_cast<size_t>(count));
    } else if (errno == EAGAIN) {  // another program made the shared pipe non-blocking
      pollfd output{STDOUT_FILENO, POLLOUT, 0};
      ::poll(&output, 1, -1);
    } else if (errno != EINTR) {
      throw CommandError(std::string("cannot write the results: ") + std::strerror(errno));
    }
  }
}

}  // namespace

BatchOutput::BatchOutput()
    : flushed_(Clock::now()),
      started_(flushed_),
      shown_(flushed_),
      showsProgress_(::isatty(STDERR_FILENO) == 1),
      resultsOnTerminal_(::isatty(STDOUT_FILENO) == 1) {}

BatchOutput::~BatchOutput() {
  if (!showsProgress_) return;
  showProgress(Clock::now());
  std::fputc('\n', stderr);
}

void BatchOutput::addLine(std::string_view result) {
  pending_ += result;
  pending_ += '\n';
  ++lines_;
  const Clock::time_point now = Clock::now();
  if (pending_.size() >= kPieceBytes || now - flushed_ >= kFlushInterval) flush();
  if (showsProgress_ && now - shown_ >= kProgressInterval) showProgress(now);
}

void BatchOutput::flush() {
  if (pending_.empty()) return;
  if (resultsOnTerminal_) hideProgress();
  writeAll(pending_);
  pending_ = {};  // a very long result must not keep its memory
  flushed_ = Clock::now();
}

void BatchOutput::showProgress(Clock::time_point now) {
  const double seconds = std::chrono::duration<double>(now - started_).count();
  const double perSecond = seconds > 0 ? static_cast<double>(lines_) / seconds : 0;
  std::fprintf(stderr, "\r\033[K%zu lines, %.0f per second", lines_, perSecond);
  progressVisible_ = true;
  shown_ = now;
}

void BatchOutput::hideProgress() {
  if (!progressVisible_) return;
  std::fputs("\r\033[K", stderr);
  progressVisible_ = false;
}
