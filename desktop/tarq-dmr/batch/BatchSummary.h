#ifndef TARQ_DMR_BATCH_SUMMARY_H_
#define TARQ_DMR_BATCH_SUMMARY_H_

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "BatchAnswer.h"

struct BatchCount {
  std::string name;
  int64_t lines;
};

// Counts the lines of a batch by result code, and those that are not refused by format.
class BatchSummary {
 public:
  void add(const BatchOutcome& outcome);

  int64_t lines() const { return lines_; }
  // The most frequent first.
  std::vector<BatchCount> kinds() const;  // accepted, refused...
  std::vector<BatchCount> results() const;
  std::vector<BatchCount> formats() const;
  std::string words() const;  // "2 accepted, 1 refused"; nothing when there were no lines
  std::string text() const;   // two tables, each line with its end
  std::string json() const;   // one object

 private:
  int64_t lines_ = 0;
  std::map<std::optional<int>, int64_t> codes_;
  std::map<std::optional<std::string>, int64_t> formats_;
};

#endif  // TARQ_DMR_BATCH_SUMMARY_H_
