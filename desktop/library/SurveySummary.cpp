#include "SurveySummary.h"

#include <algorithm>

namespace {

constexpr size_t kMaxNames = 200;

// Returns: the entry of that key; that of `others` when it is new and there are too many.
template <class Key, class Count>
Count& entryOf(std::map<Key, Count>& counts, const Key& key, const Key& others) {
  const auto found = counts.find(key);
  if (found != counts.end()) return found->second;
  return counts[counts.size() < kMaxNames ? key : others];
}

template <class Count>
void countIn(Count& count, const SurveyedItem& item, const std::string& line) {
  if (count.items++ == 0) count.example = {item.item.id, item.item.title, item.item.uri, line};
}

void addTo(RegionSummary& region, const SurveyedItem& item, const CheckFacts& facts) {
  ++region.totals[facts.state];
  const FormatKind others{facts.kind, kOthers};
  ++entryOf(region.formats, FormatKind{facts.kind, facts.format}, others)[facts.state];
  if (facts.reason) {
    WordedCount& reason = region.reasons[{facts.state, facts.reason->key}];
    if (reason.items == 0) reason.words = facts.reason->words;
    countIn(reason, item, facts.line);
  }
  if (facts.change) {
    const ChangeKey key{facts.change->key, facts.change->value};
    WordedCount& change = entryOf(region.changes, key, ChangeKey{key.key, kOthers});
    if (change.items == 0) change.words = facts.change->words;
    countIn(change, item, facts.line);
  }
}

std::string patternWord(const CheckFacts& facts) {
  const bool hasFormat = !facts.reason && !facts.format.empty();
  return stateWords(facts.state) + (hasFormat ? ", " + facts.format : std::string());
}

}  // namespace

void SurveySummary::add(const SurveyedItem& item) {
  ++items;
  if (item.item.isReference) ++references;
  RegionPattern pattern;
  for (size_t i = 0; i < regions.size(); ++i) {
    addTo(regions[i], item, item.facts[i]);
    pattern.push_back(patternWord(item.facts[i]));
  }
  if (std::ranges::count(pattern, pattern.front()) == std::ssize(pattern)) return;
  const RegionPattern others(pattern.size(), kOthers);
  countIn(entryOf(differences, pattern, others), item, item.facts.front().line);
}

void SurveySummary::addProblem(const std::string& container, const std::string& words) {
  ProblemCount& problem = entryOf(problems, words, std::string(kOthers));
  if (problem.times++ == 0) problem.example = container;
}
