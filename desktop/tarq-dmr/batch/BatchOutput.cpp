#include "BatchOutput.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

#include "CommandError.h"

namespace {

constexpr size_t kPieceBytes = size_t{256} << 10;
constexpr auto kFlushInterval = std::chrono::milliseconds(100);

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

void BatchOutput::add(const BatchResult& result, uint64_t inputEnd) {
  const std::lock_guard lock(mutex_);
  if (counts_) summary_.add(result.outcome);
  if (listener_ != nullptr) listener_->add(result.outcome);
  const auto now = RateProgress::Clock::now();
  if (results_ == BatchResults::kLines) {
    (pending_ += result.line) += '\n';
    if (pending_.size() >= kPieceBytes || now - flushed_ >= kFlushInterval) write();
  }
  if (progress_.isDue(now)) progress_.show(summary_.lines(), percent(inputEnd), now);
}

std::string BatchOutput::percent(uint64_t inputEnd) const {
  if (inputBytes_.value_or(0) == 0) return "";
  return ", " + std::to_string(std::min<uint64_t>(100 * inputEnd / *inputBytes_, 100)) +
         " %";  // a file may grow
}

void BatchOutput::flush() {
  const std::lock_guard lock(mutex_);
  write();
}

void BatchOutput::end() {
  const std::lock_guard lock(mutex_);
  writeEnd();
}

// The lock stays: whatever came after the end would be cut off.
void BatchOutput::interrupt(int signal) noexcept {
  const std::lock_guard lock(mutex_);
  try {
    writeEnd();
  } catch (const std::exception&) {
    // The process ends either way.
  }
  ::raise(signal);
}

void BatchOutput::write() {
  if (pending_.empty()) return;
  progress_.hide();
  writeAll(pending_);
  pending_ = {};  // a very long result must not keep its memory
  flushed_ = RateProgress::Clock::now();
}

void BatchOutput::writeEnd() {
  if (std::exchange(hasEnded_, true)) return;
  if (results_ == BatchResults::kSummaryText) pending_ = summary_.text();
  if (results_ == BatchResults::kSummaryJson) pending_ = summary_.json() + '\n';
  write();
  if (listener_ != nullptr) listener_->end(summary_);
  progress_.end(summary_.lines(), summary_.words());
}
