#ifndef TARQ_DMR_EXPLAIN_REPORT_H_
#define TARQ_DMR_EXPLAIN_REPORT_H_

#include <string>

#include "BatchListener.h"
#include "CheckFacts.h"
#include "HtmlReport.h"

// Explanations as a page of HTML.
// Errors: CommandError when the file cannot be written.

// Of the answers of a batch, which bring their items.
class ExplainReport : public BatchListener {
 public:
  // `source`: the file of the lines; "-" is standard input.
  ExplainReport(const std::string& path, std::string source) : report_(path), source_(std::move(source)) {}

  void add(const BatchOutcome& outcome) override;
  void end(const BatchSummary& summary) override;

 private:
  HtmlReport report_;
  const std::string source_;
};

// Of one resource: also step by step.
void writeReport(HtmlReport& report, const CheckFacts& facts);

#endif  // TARQ_DMR_EXPLAIN_REPORT_H_
