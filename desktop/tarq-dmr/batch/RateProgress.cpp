#include "RateProgress.h"

#include <unistd.h>

#include <cinttypes>
#include <cstdio>

namespace {

constexpr auto kInterval = std::chrono::milliseconds(200);

}  // namespace

RateProgress::RateProgress(const char* what)
    : what_(what), isShown_(::isatty(STDERR_FILENO) == 1), started_(Clock::now()), shown_(started_) {}

bool RateProgress::isDue(Clock::time_point now) const { return isShown_ && now - shown_ >= kInterval; }

void RateProgress::show(int64_t count, const std::string& words, Clock::time_point now) {
  std::fprintf(stderr, "\r\033[K%s%s", rate(count, now).c_str(), words.c_str());
  isVisible_ = true;
  shown_ = now;
}

void RateProgress::hide() {
  if (isVisible_) std::fputs("\r\033[K", stderr);
  isVisible_ = false;
}

void RateProgress::end(int64_t count, const std::string& words) {
  if (!isShown_) return;
  hide();
  const Clock::time_point now = Clock::now();
  const double seconds = std::chrono::duration<double>(now - started_).count();
  std::fprintf(stderr, "%s, %.1f s%s%s\n", rate(count, now).c_str(), seconds, words.empty() ? "" : ": ",
               words.c_str());
}

std::string RateProgress::rate(int64_t count, Clock::time_point now) const {
  const double seconds = std::chrono::duration<double>(now - started_).count();
  char text[64];
  std::snprintf(text, sizeof text, "%" PRId64 " %s, %.0f per second", count, what_,
                seconds > 0 ? static_cast<double>(count) / seconds : 0);
  return text;
}
