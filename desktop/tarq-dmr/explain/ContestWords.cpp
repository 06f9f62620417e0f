#include "ContestWords.h"

#include <algorithm>

#include "ExplainWords.h"
#include "ResContest.h"

namespace {

std::string resName(int index) { return "res " + std::to_string(index); }

std::string exclusionWords(ResRule rule, MediaCategory category, MediaCategory kind) {
  if (rule == ResRule::kOtherKind) {
    return std::string("it is ") + categoryNoun(category) + ", not " + categoryNoun(kind);
  }
  return ruleWords(rule);
}

std::string signedNumber(int number) { return (number > 0 ? "+" : "") + std::to_string(number); }

// Where the points of two candidates differ.
std::string difference(const ResPoints& a, const ResPoints& b) {
  std::string words;
  for (const PointCause& cause : pointCauses()) {
    const int points = a.*cause.points - b.*cause.points;
    if (points == 0) continue;
    words += (words.empty() ? "" : ", ") + std::string(cause.name) + " " + signedNumber(points);
  }
  return words;
}

std::string leadByPoints(const Explanation& explanation) {
  const int winner = explanation.choice.winner;
  const int second = secondOf(explanation);
  if (second < 0) return "no other candidate has more than 0";
  const ResPoints& won = explanation.scoreOf(winner).counted();
  const ResPoints& lost = explanation.scoreOf(second).counted();
  const int ahead = won.total() - lost.total();
  const std::string other = resName(second);
  if (ahead > 0) return std::to_string(ahead) + " points ahead of " + other + ": " + difference(won, lost);
  if (ahead == 0 && second > winner) return other + " has as many points, but comes later";
  return other + " has " + (ahead == 0 ? "as many" : "more") + " points, but only secondary ones";
}

std::string leadByRank(const Explanation& explanation) {
  const int rank = explanation.scoreOf(explanation.choice.winner).mpo.rank;
  const auto equals = std::ranges::count_if(
      explanation.records, [&](const TarqDlnaResMetadata& record) { return record.score.mpo.rank == rank; });
  return equals == 1 ? "no other candidate has this rank"
                     : "its size is the best of those with this rank, or it comes first";
}

}  // namespace

std::string contestReason(const Explanation& explanation) {
  const ResChoice& choice = explanation.choice;
  const bool photo = choice.kind == kCategoryPhoto;
  if (choice.contestFrom < 0) {
    return photo ? "no element is a multi-picture file (av:mpfEntries)"
                 : "no element is Windows Media that the server has not converted";
  }
  const std::string from = resName(choice.contestFrom);
  if (!photo) return from + " is Windows Media that the server has not converted";
  const int entries = explanation.records[static_cast<size_t>(choice.contestFrom)].mpfEntries;
  return from + " is a file of " + std::to_string(entries) + " pictures (av:mpfEntries)" +
         (choice.contest == ResContestKind::kMpo ? "" : ", but the contest for such files has no candidate");
}

int secondOf(const Explanation& explanation) {
  BestScore second;
  for (int i = 0; i < static_cast<int>(explanation.records.size()); ++i) {
    if (i != explanation.choice.winner) second.offer(i, explanation.scoreOf(i).counted().total());
  }
  return second.index;
}

std::string exclusionReason(const Explanation& explanation, size_t index) {
  const TarqDlnaResMetadata& record = explanation.records[index];
  return exclusionWords(record.score.rule, record.category, explanation.choice.kind);
}

std::optional<WhatIf> changeToEnter(const Explanation& explanation, size_t index) {
  const TarqDlnaResMetadata& record = explanation.records[index];
  if (record.score.rule == ResRule::kSkipped) return std::nullopt;
  return whatIf(explanation.choice, explanation.region, record);
}

std::string wouldBe(const WhatIf& change) {
  if (change.format == nullptr) return "would win " + change.words + ", but has no format";
  return std::string("would be ") + change.format + " " + change.words;
}

std::string exclusionText(const Explanation& explanation, size_t index) {
  const std::optional<WhatIf> change = changeToEnter(explanation, index);
  return exclusionReason(explanation, index) + (change ? "; " + wouldBe(*change) : "");
}

std::optional<ResChange> firstChange(const Explanation& explanation) {
  for (size_t i = 0; i < explanation.records.size(); ++i) {
    if (!isOut(explanation.records[i].score.rule)) continue;
    std::optional<WhatIf> change = changeToEnter(explanation, i);
    if (change) return ResChange{static_cast<int>(i), *std::move(change)};
  }
  return std::nullopt;
}

std::string leadWords(const Explanation& explanation) {
  if (explanation.choice.winner < 0) return "no candidate has more than 0";
  return explanation.choice.contest == ResContestKind::kMpo ? leadByRank(explanation)
                                                            : leadByPoints(explanation);
}
