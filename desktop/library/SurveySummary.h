#ifndef TARQ_SURVEY_SUMMARY_H_
#define TARQ_SURVEY_SUMMARY_H_

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "SurveyedItem.h"

// The counts of a survey. The strings come from the server: as it wrote them, not harmless for a terminal.
// A server that makes up names does not make it grow: after some hundred, the rest are counted as kOthers.

inline constexpr const char* kOthers = "(others)";

// The first item that was counted.
struct SurveyExample {
  std::string id;
  std::string title;
  std::string uri;
  std::string line;  // the choice for it, on one line
};

struct StateCounts {
  std::array<int64_t, 3> items{};  // by CheckState

  int64_t& operator[](CheckState state) { return items[static_cast<size_t>(state)]; }
  int64_t operator[](CheckState state) const { return items[static_cast<size_t>(state)]; }
  int64_t total() const { return items[0] + items[1] + items[2]; }
};

struct FormatKind {
  std::string kind;
  std::string format;
  bool operator<(const FormatKind& other) const {
    return std::tie(kind, format) < std::tie(other.kind, other.format);
  }
};

struct ReasonKey {
  CheckState state;
  std::string key;
  bool operator<(const ReasonKey& other) const {
    return std::tie(state, key) < std::tie(other.state, other.key);
  }
};

struct ChangeKey {
  std::string key;
  std::string value;
  bool operator<(const ChangeKey& other) const {
    return std::tie(key, value) < std::tie(other.key, other.value);
  }
};
// Of a reason or a change.
struct WordedCount {
  int64_t items = 0;
  std::string words;
  SurveyExample example;
};

struct RegionSummary {
  int32_t region;
  StateCounts totals = {};
  std::map<FormatKind, StateCounts> formats = {};
  std::map<ReasonKey, WordedCount> reasons = {};
  std::map<ChangeKey, WordedCount> changes = {};
};

// What one item is in the regions, in their order, where it is not the same in all.
using RegionPattern = std::vector<std::string>;  // "plays as MPEG4"
struct PatternCount {
  int64_t items = 0;
  SurveyExample example;
};

// How often something was wrong with a container.
struct ProblemCount {
  int64_t times = 0;
  std::string example;  // the title of the first
};

enum class SurveyEnd { kComplete, kLimit, kInterrupted };

struct SurveySummary {
  explicit SurveySummary(const std::vector<int32_t>& surveyed) {
    for (const int32_t region : surveyed) regions.push_back({.region = region});
  }
  void add(const SurveyedItem& item);
  void addProblem(const std::string& container, const std::string& words);

  int64_t items = 0;
  int64_t references = 0;              // of them: items that are elsewhere in the library, too
  std::vector<RegionSummary> regions;  // in the order of the survey
  std::map<RegionPattern, PatternCount> differences;
  std::map<std::string, ProblemCount> problems;  // by their words
  int64_t containers = 0;
  SurveyEnd end = SurveyEnd::kComplete;
};

#endif  // TARQ_SURVEY_SUMMARY_H_
