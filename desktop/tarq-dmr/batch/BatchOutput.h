#ifndef TARQ_DMR_BATCH_OUTPUT_H_
#define TARQ_DMR_BATCH_OUTPUT_H_

#include <mutex>
#include <string>

#include "BatchListener.h"
#include "BatchSummary.h"
#include "RateProgress.h"

// What standard output gets of a batch.
enum class BatchResults { kLines, kSummaryText, kSummaryJson };

// Writes the result lines of a batch in large pieces, or a summary at its end. Shows progress.
// Threads: one that adds, while another may interrupt.
// Errors: CommandError when standard output cannot be written.
class BatchOutput {
 public:
  // Null: nobody listens.
  BatchOutput(BatchResults results, std::optional<uint64_t> inputBytes, BatchListener* listener)
      : results_(results),
        listener_(listener),
        inputBytes_(inputBytes),
        counts_(results != BatchResults::kLines || progress_.isShown() || listener != nullptr) {}

  // Flushes by itself every now and then, so that a slow check does not hold back the results before it.
  // `inputEnd`: bytes of the input up to the end of the line that was answered.
  void add(const BatchResult& result, uint64_t inputEnd);
  void flush();
  void end();
  // Ends the output with the last line that was added, then the process by `signal`, which must not be blocked.
  // Waits for whoever reads the results to take the rest of them.
  void interrupt(int signal) noexcept;

 private:
  void write();
  void writeEnd();
  std::string percent(uint64_t inputEnd) const;

  const BatchResults results_;
  BatchListener* const listener_;
  const std::optional<uint64_t> inputBytes_;  // of the whole input, if known
  std::mutex mutex_;                          // for all below
  std::string pending_;
  RateProgress::Clock::time_point flushed_ = RateProgress::Clock::now();
  RateProgress progress_{"lines"};
  const bool counts_;  // otherwise nobody sees the summary
  BatchSummary summary_;
  bool hasEnded_ = false;
};

#endif  // TARQ_DMR_BATCH_OUTPUT_H_
