#ifndef TARQ_DMR_BATCH_OUTPUT_H_
#define TARQ_DMR_BATCH_OUTPUT_H_

#include <chrono>
#include <string>
#include <string_view>

// Writes the result lines of a batch to standard output in large pieces. Shows progress on standard error
// when that is a terminal.
class BatchOutput {
 public:
  BatchOutput();
  ~BatchOutput();  // ends the progress line
  BatchOutput(const BatchOutput&) = delete;
  BatchOutput& operator=(const BatchOutput&) = delete;

  // Flushes by itself every now and then, so that a slow check does not hold back the results before it.
  // Errors: CommandError when standard output cannot be written, here and in `flush`.
  void addLine(std::string_view result);
  void flush();

 private:
  using Clock = std::chrono::steady_clock;

  void showProgress(Clock::time_point now);
  void hideProgress();

  std::string pending_;
  Clock::time_point flushed_;
  const Clock::time_point started_;
  Clock::time_point shown_;
  size_t lines_ = 0;
  const bool showsProgress_;
  const bool resultsOnTerminal_;  // the progress line must make room for them
  bool progressVisible_ = false;
};

#endif  // TARQ_DMR_BATCH_OUTPUT_H_
