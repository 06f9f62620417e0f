#include "LargestFirst.h"
#include "Steps.h"
#include "SurveyReport.h"

namespace {

std::string shownText(const std::string& text, size_t limitBytes = 80) {
  return text.empty() ? "" : shown(text.c_str(), limitBytes);
}

std::string exampleText(const SurveyExample& example) {
  return "for example " + shownText(example.title.empty() ? example.id : example.title) + ": " +
         shownText(example.line, 160);
}

// What the bars of one region begin with, where there are several.
std::string regionText(const SurveySummary& summary, const RegionSummary& region) {
  return summary.regions.size() == 1 ? "" : "region " + std::to_string(region.region) + ": ";
}

// `addBars` takes the bars, a region and what their labels begin with.
template <class AddBars>
ReportChart chartOf(const SurveySummary& summary, const char* title, AddBars addBars) {
  ReportChart chart{title, {}};
  for (const RegionSummary& region : summary.regions)
    addBars(chart.bars, region, regionText(summary, region));
  std::ranges::stable_sort(chart.bars, std::greater<>(), &ReportBar::count);
  return chart;
}

using Bars = std::vector<ReportBar>;

void addStates(Bars& bars, const RegionSummary& region, const std::string& begin) {
  for (const CheckState state : kCheckStates) {
    if (region.totals[state] > 0) bars.push_back({begin + stateWords(state), region.totals[state], ""});
  }
}

void addFormats(Bars& bars, const RegionSummary& region, const std::string& begin) {
  for (const auto& [key, counts] : region.formats) {
    const std::string format = key.format.empty() ? "format not known" : shownText(key.format);
    for (const CheckState state : kCheckStates) {
      if (counts[state] > 0)
        bars.push_back({begin + format, counts[state], key.kind + ", " + stateWords(state)});
    }
  }
}

void addReasons(Bars& bars, const RegionSummary& region, const std::string& begin) {
  for (const auto& [key, count] : region.reasons)
    bars.push_back({begin + shownText(count.words, 160), count.items, exampleText(count.example)});
}

void addChanges(Bars& bars, const RegionSummary& region, const std::string& begin) {
  for (const auto& [key, count] : region.changes) {
    std::string label = begin + count.words;
    const bool isRegion = key.key == "region";  // which is in the words already
    if (!isRegion && !key.value.empty()) (label += ' ') += shownText(key.value);
    bars.push_back({label, count.items, exampleText(count.example)});
  }
}

ReportChart differences(const SurveySummary& summary) {
  ReportChart chart{"Not the same in all regions", {}};
  for (const auto* entry :
       largestFirst(summary.differences, [](const PatternCount& count) { return count.items; })) {
    std::string label;
    for (size_t i = 0; i < entry->first.size(); ++i)
      label += (i == 0 ? "" : "; ") + regionText(summary, summary.regions[i]) + shownText(entry->first[i]);
    chart.bars.push_back({label, entry->second.items, exampleText(entry->second.example)});
  }
  return chart;
}

ReportChart problems(const SurveySummary& summary) {
  ReportChart chart{"Problems with the server", {}};
  for (const auto* entry :
       largestFirst(summary.problems, [](const ProblemCount& count) { return count.times; })) {
    chart.bars.push_back({shownText(entry->first, 160), entry->second.times,
                          "for example in " + shownText(entry->second.example)});
  }
  return chart;
}

std::string endText(SurveyEnd end) {
  return end == SurveyEnd::kComplete ? "" : end == SurveyEnd::kLimit ? "limit reached" : "interrupted";
}

}  // namespace

ReportSummary surveyPage(const ServerDescription& server, const SurveySummary& summary) {
  ReportSummary page{
      .title = shownText(server.name),
      .subtitle = shownText(server.model) + " at " + shownText(server.url, 200),
      .facts = {{"items", std::to_string(summary.items)}, {"containers", std::to_string(summary.containers)}},
      .charts = {chartOf(summary, "Results", addStates), chartOf(summary, "Formats", addFormats),
                 chartOf(summary, "Why not", addReasons),
                 chartOf(summary, "What one change would let play", addChanges), differences(summary),
                 problems(summary)},
      .text = ""};
  if (summary.end != SurveyEnd::kComplete) page.facts.push_back({"not complete", endText(summary.end)});
  return page;
}
