#include <numeric>

#include "LargestFirst.h"
#include "Steps.h"
#include "SurveyReport.h"
#include "TextTable.h"

namespace {

using Cells = std::vector<std::string>;

std::string shownText(const std::string& text, size_t limitBytes = 40) {
  return shown(text.c_str(), limitBytes);
}

std::string exampleText(const SurveyExample& example) {
  return shownText(example.title.empty() ? example.id : example.title) + ": " + shownText(example.line, 160);
}

// What is counted, with its number in each region.
class RegionTable {
 public:
  // `headings`: of the cells.
  RegionTable(const SurveySummary& summary, const Cells& headings) : regions_(summary.regions.size()) {
    for (const RegionSummary& region : summary.regions)
      headings_.push_back(regions_ == 1 ? ">items" : ">region " + std::to_string(region.region));
    headings_.insert(headings_.end(), headings.begin(), headings.end());
  }

  void add(size_t region, const Cells& cells, int64_t items, const SurveyExample* example = nullptr) {
    if (items == 0) return;
    Row& row = rows_[cells];
    row.items.resize(regions_);
    row.items[region] += items;
    if (example != nullptr && row.example.empty()) row.example = exampleText(*example);
  }

  // The largest first.
  // Returns: an empty string when there is nothing.
  std::string text(const char* title) const {
    if (rows_.empty()) return "";
    TextTable table(headings_);
    const auto sum = [](const Row& row) {
      return std::accumulate(row.items.begin(), row.items.end(), int64_t{0});
    };
    for (const auto* entry : largestFirst(rows_, sum)) {
      Cells cells;
      for (const int64_t items : entry->second.items)
        cells.push_back(items == 0 ? "" : std::to_string(items));
      cells.insert(cells.end(), entry->first.begin(), entry->first.end());
      if (!entry->second.example.empty()) cells.push_back(entry->second.example);
      table.addRow(cells);
    }
    return std::string("\n") + title + "\n" + table.text();
  }

 private:
  struct Row {
    std::vector<int64_t> items;
    std::string example;
  };

  const size_t regions_;
  Cells headings_;
  std::map<Cells, Row> rows_;
};

std::string totalsText(const SurveySummary& summary) {
  RegionTable table(summary, {"state"});
  for (size_t i = 0; i < summary.regions.size(); ++i)
    for (const CheckState state : kCheckStates)
      table.add(i, {stateWords(state)}, summary.regions[i].totals[state]);
  return table.text("All items");
}

std::string formatsText(const SurveySummary& summary) {
  RegionTable table(summary, {"state", "kind", "format"});
  for (size_t i = 0; i < summary.regions.size(); ++i) {
    for (const auto& [key, counts] : summary.regions[i].formats) {
      const std::string format = key.format.empty() ? "(not known)" : shownText(key.format);
      for (const CheckState state : kCheckStates)
        table.add(i, {stateWords(state), key.kind, format}, counts[state]);
    }
  }
  return table.text("By kind and format");
}

std::string reasonsText(const SurveySummary& summary) {
  RegionTable table(summary, {"state", "reason", "for example"});
  for (size_t i = 0; i < summary.regions.size(); ++i)
    for (const auto& [key, count] : summary.regions[i].reasons)
      table.add(i, {stateWords(key.state), shownText(count.words, 80)}, count.items, &count.example);
  return table.text("Why no res is played");
}

std::string changesText(const SurveySummary& summary) {
  RegionTable table(summary, {"would play", "which is", "for example"});
  for (size_t i = 0; i < summary.regions.size(); ++i) {
    for (const auto& [key, count] : summary.regions[i].changes) {
      const bool isRegion = key.key == "region";  // which is in the words already
      table.add(i, {count.words, isRegion ? "" : shownText(key.value)}, count.items, &count.example);
    }
  }
  return table.text("What one change would let play");
}

std::string differencesText(const SurveySummary& summary) {
  if (summary.regions.size() < 2) return "";
  if (summary.differences.empty()) return "\nEach item is the same in all regions.\n";
  Cells headings = {">items"};
  for (const RegionSummary& region : summary.regions)
    headings.push_back("region " + std::to_string(region.region));
  headings.emplace_back("for example");
  TextTable table(headings);
  for (const auto* entry :
       largestFirst(summary.differences, [](const PatternCount& count) { return count.items; })) {
    Cells cells = {std::to_string(entry->second.items)};
    for (const std::string& word : entry->first) cells.push_back(shownText(word));
    cells.push_back(exampleText(entry->second.example));
    table.addRow(cells);
  }
  return "\nNot the same in all regions\n" + table.text();
}

std::string problemsText(const SurveySummary& summary) {
  if (summary.problems.empty()) return "";
  TextTable table({">times", "for example in", "problem"});
  for (const auto* entry :
       largestFirst(summary.problems, [](const ProblemCount& count) { return count.times; }))
    table.addRow({std::to_string(entry->second.times), shownText(entry->second.example),
                  shownText(entry->first, 120)});
  return "\nProblems with the server\n" + table.text();
}

std::string counted(int64_t count, const char* what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

const char* endWords(SurveyEnd end) {
  return end == SurveyEnd::kComplete ? ""
         : end == SurveyEnd::kLimit  ? "; the limit was reached, there may be more"
                                     : "; interrupted, there may be more";
}

}  // namespace

std::string surveyText(const ServerDescription& server, const SurveySummary& summary) {
  std::string text = shownText(server.name, 80) + " (" + shownText(server.model, 80) +
                     "): " + counted(summary.items, "item") + " in " +
                     counted(summary.containers, "container");
  if (summary.references > 0)
    text += ", " + std::to_string(summary.references) + " of them references to others";
  return text + endWords(summary.end) + "\n" + totalsText(summary) + formatsText(summary) +
         reasonsText(summary) + changesText(summary) + differencesText(summary) + problemsText(summary);
}
