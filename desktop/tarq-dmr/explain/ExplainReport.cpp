#include "ExplainReport.h"

#include "Explanation.h"

namespace {

std::vector<ReportBar> bars(const std::vector<BatchCount>& counts) {
  std::vector<ReportBar> bars;
  bars.reserve(counts.size());
  for (const BatchCount& count : counts) bars.push_back({count.name, count.lines, ""});
  return bars;
}

}  // namespace

void ExplainReport::add(const BatchOutcome& outcome) {
  if (!outcome.item.empty()) report_.add(outcome.item);  // a line that is not valid has none
}

void ExplainReport::end(const BatchSummary& summary) {
  std::vector<ReportFact> facts = {{"lines", std::to_string(summary.lines())}};
  for (const BatchCount& kind : summary.kinds()) facts.push_back({kind.name, std::to_string(kind.lines)});
  const std::string source = source_ == "-" ? "standard input" : source_;
  report_.end({"What plays, and why",
               "The lines of " + source,
               facts,
               {{"Results", bars(summary.results())}, {"Formats", bars(summary.formats())}},
               ""});
}

void writeReport(HtmlReport& report, const CheckFacts& facts) {
  const Explanation& explanation = *facts.explanation;
  const char* title = explanation.metadata.title;
  report.add(itemJson(facts));
  report.end({title == nullptr ? "What plays, and why" : title,
              explanation.uri.text,
              {},
              {},
              explanationText(explanation)});
}
