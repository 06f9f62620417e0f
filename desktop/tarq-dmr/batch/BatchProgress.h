#ifndef TARQ_DMR_BATCH_PROGRESS_H_
#define TARQ_DMR_BATCH_PROGRESS_H_

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

// How far a batch is: one line on standard error that changes. Nothing when that is not a terminal.
class BatchProgress {
 public:
  using Clock = std::chrono::steady_clock;

  // `inputBytes`: of the whole input, if known.
  explicit BatchProgress(std::optional<uint64_t> inputBytes);
  ~BatchProgress() { hide(); }
  BatchProgress(const BatchProgress&) = delete;
  BatchProgress& operator=(const BatchProgress&) = delete;

  bool isShown() const { return isShown_; }
  void update(int64_t lines, uint64_t bytesDone, Clock::time_point now);
  void hide();  // makes room for results; the next update shows it again
  // Replaces the line by a last one with `words`.
  void end(int64_t lines, const std::string& words);

 private:
  std::string rate(int64_t lines, Clock::time_point now) const;

  const std::optional<uint64_t> inputBytes_;
  const bool isShown_;
  const Clock::time_point started_;
  Clock::time_point shown_;
  bool isVisible_ = false;
};

#endif  // TARQ_DMR_BATCH_PROGRESS_H_
