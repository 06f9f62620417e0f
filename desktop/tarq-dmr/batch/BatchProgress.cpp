#include "BatchProgress.h"

#include <unistd.h>

#include <algorithm>
#include <cinttypes>
#include <cstdio>

namespace {

constexpr auto kInterval = std::chrono::milliseconds(200);

}  // namespace

BatchProgress::BatchProgress(std::optional<uint64_t> inputBytes)
    : inputBytes_(inputBytes),
      isShown_(::isatty(STDERR_FILENO) == 1),
      started_(Clock::now()),
      shown_(started_) {}

void BatchProgress::update(int64_t lines, uint64_t bytesDone, Clock::time_point now) {
  if (!isShown_ || now - shown_ < kInterval) return;
  std::string line = rate(lines, now);
  if (inputBytes_ && *inputBytes_ > 0)  // a file may grow
    line += ", " + std::to_string(std::min<uint64_t>(100 * bytesDone / *inputBytes_, 100)) + " %";
  std::fprintf(stderr, "\r\033[K%s", line.c_str());
  isVisible_ = true;
  shown_ = now;
}

void BatchProgress::hide() {
  if (isVisible_) std::fputs("\r\033[K", stderr);
  isVisible_ = false;
}

void BatchProgress::end(int64_t lines, const std::string& words) {
  if (!isShown_) return;
  hide();
  const Clock::time_point now = Clock::now();
  const double seconds = std::chrono::duration<double>(now - started_).count();
  std::fprintf(stderr, "%s, %.1f s%s%s\n", rate(lines, now).c_str(), seconds, words.empty() ? "" : ": ",
               words.c_str());
}

std::string BatchProgress::rate(int64_t lines, Clock::time_point now) const {
  const double seconds = std::chrono::duration<double>(now - started_).count();
  char text[64];
  std::snprintf(text, sizeof text, "%" PRId64 " lines, %.0f per second", lines,
                seconds > 0 ? static_cast<double>(lines) / seconds : 0);
  return text;
}
