#ifndef TARQ_DMR_BATCH_OUTPUT_H_
#define TARQ_DMR_BATCH_OUTPUT_H_

#include <chrono>
#include <string>
#include <string_view>

// Writes the answer lines of a batch to standard output in large pieces, and shows on standard error how far
// the batch is when that is a terminal.
class BatchOutput {
 public:
  BatchOutput();
  ~BatchOutput();  // ends the progress line
  BatchOutput(const BatchOutput&) = delete;
  BatchOutput& operator=(const BatchOutput&) = delete;

  // Writes out by itself now and then: slow checks do not hold back the answers before them.
  // Throws CommandError when standard output does not take them.
  void addLine(std::string_view answer);
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
  const bool answersOnTerminal_;  // where the progress line would stand in their way
  bool progressVisible_ = false;
};

#endif  // TARQ_DMR_BATCH_OUTPUT_H_
