#ifndef TARQ_DMR_RATE_PROGRESS_H_
#define TARQ_DMR_RATE_PROGRESS_H_

#include <chrono>
#include <cstdint>
#include <string>

// How many of something are done and how fast: one line on standard error that changes, or nothing when
// that is not a terminal.
class RateProgress {
 public:
  using Clock = std::chrono::steady_clock;

  explicit RateProgress(const char* what);  // "lines"
  ~RateProgress() { hide(); }
  RateProgress(const RateProgress&) = delete;
  RateProgress& operator=(const RateProgress&) = delete;

  bool isShown() const { return isShown_; }
  bool isDue(Clock::time_point now) const;  // not so often that it would cost anything
  void show(int64_t count, const std::string& words, Clock::time_point now);
  void hide();  // makes room for results; the next line shows it again
  // Replaces the line by a last one with `words`.
  void end(int64_t count, const std::string& words);

 private:
  std::string rate(int64_t count, Clock::time_point now) const;

  const char* const what_;
  const bool isShown_;
  const Clock::time_point started_;
  Clock::time_point shown_;
  bool isVisible_ = false;
};

#endif  // TARQ_DMR_RATE_PROGRESS_H_
