#include "ContestFacts.h"

#include <algorithm>

#include "ExplainWords.h"
#include "WhatIf.h"

namespace {

std::string resName(size_t index) { return "res " + std::to_string(index); }

// Why the object comes to this contest. The tests are asked of each record alone.
std::string reasonFor(ResContestKind kind, const TarqDlnaResSelection& selection,
                      const std::vector<TarqDlnaResMetadata>& records) {
  const auto firstThat = [&](auto test) {
    return resName(static_cast<size_t>(std::ranges::find_if(records, test) - records.begin()));
  };
  switch (kind) {
    case ResContestKind::kPhoto:
      return "no element is a multi-picture file (av:mpfEntries)";
    case ResContestKind::kMpo: {
      const auto most = std::ranges::max_element(records, {}, &TarqDlnaResMetadata::mpfEntries);
      return resName(static_cast<size_t>(most - records.begin())) + " is a file of " +
             std::to_string(most->mpfEntries) + " pictures (av:mpfEntries)";
    }
    case ResContestKind::kWma:
      return firstThat([&](auto& record) { return selection.IsWMAContent(1, &record); }) +
             " is Windows Media that the server has not converted";
    case ResContestKind::kWmv:
      return firstThat([&](auto& record) { return selection.IsWMVContent(1, &record); }) +
             " is Windows Media that the server has not converted";
    default:
      return "no element is Windows Media that the server has not converted";
  }
}

std::string whyOut(ResRule rule, int mediaKind, const TarqDlnaResMetadata& record) {
  if (rule == ResRule::kProfileNotInRegion) return "profile name not played in this region";
  if (rule == ResRule::kMimeTypeAmr) return "3GPP audio whose extension is \"amr\" or missing";
  if (record.category != kCategoryUnknown && record.category != mediaKind)
    return std::string("it is ") + categoryNoun(record.category) + ", not " + categoryNoun(mediaKind);
  const bool named = record.dlnaPn.c_str() != nullptr || record.orsaPn.c_str() != nullptr ||
                     record.aribPn.c_str() != nullptr;
  if (named) return "unknown profile name, no help from the MIME type";
  return record.mimeType.c_str() == nullptr ? "no MIME type" : "unknown MIME type";
}

void explainOut(ContestFacts& facts, int32_t region, int mediaKind, const std::vector<ResFacts>& res,
                const std::vector<TarqDlnaResMetadata>& records) {
  for (size_t i = 0; i < records.size(); ++i) {
    const bool mpo = facts.kind == ResContestKind::kMpo;
    if (mpo ? facts.photos[i].rank != 0 : !isOut(facts.scores[i].rule)) continue;
    std::string& reason = facts.outFor[i];
    if (res[i].skipped != nullptr) {
      reason = "skipped";
      continue;
    }
    reason = mpo ? "it needs av:mpfEntries, a usable resolution and no profile name"
                 : whyOut(facts.scores[i].rule, mediaKind, records[i]);
    const std::string otherwise = whatIf(facts.kind, region, records[i]);
    if (!otherwise.empty()) reason += "; " + otherwise;
  }
}

std::string signedNumber(int number) { return (number > 0 ? "+" : "") + std::to_string(number); }

// Where the points of two candidates differ.
std::string difference(const ResPoints& a, const ResPoints& b) {
  struct Cause {
    const char* name;
    int32_t ResPoints::*points;
  };
  constexpr Cause kCauses[] = {{"format", &ResPoints::format},
                               {"position", &ResPoints::position},
                               {"original", &ResPoints::notConverted},
                               {"size", &ResPoints::resolution},
                               {"nearest", &ResPoints::nearest}};
  std::string words;
  for (const Cause& cause : kCauses) {
    const int points = a.*cause.points - b.*cause.points;
    if (points != 0)
      words += (words.empty() ? "" : ", ") + std::string(cause.name) + " " + signedNumber(points);
  }
  return words;
}

// What the winner is ahead by of the candidate with the most points beside it.
std::string leadOf(const ContestFacts& facts) {
  if (facts.winner < 0) return "no candidate has more than 0";
  const auto winner = static_cast<size_t>(facts.winner);
  BestScore second;
  for (size_t i = 0; i < facts.scores.size(); ++i) {
    if (i != winner) second.offer(static_cast<int>(i), countedPoints(facts.scores[i]).total());
  }
  if (second.index < 0) return "no other candidate has more than 0";
  const std::string other = resName(static_cast<size_t>(second.index));
  const ResPoints& won = countedPoints(facts.scores[winner]);
  const ResPoints& lost = countedPoints(facts.scores[static_cast<size_t>(second.index)]);
  const int ahead = won.total() - lost.total();
  if (ahead > 0) return std::to_string(ahead) + " points ahead of " + other + ": " + difference(won, lost);
  if (ahead == 0 && second.index > facts.winner) return other + " has as many points, but comes later";
  return other + " has " + (ahead == 0 ? "as many" : "more") + " points, but only secondary ones";
}

std::string mpoLeadOf(const ContestFacts& facts) {
  const int rank = facts.photos[static_cast<size_t>(facts.winner)].rank;
  const auto equals = std::ranges::count_if(facts.photos, [&](auto& photo) { return photo.rank == rank; });
  return equals == 1 ? "nobody else has that rank"
                     : "its size is the best of those with that rank, or the first";
}

}  // namespace

const ResPoints& countedPoints(const ResScore& score) {
  return score.secondary.format > 0 ? score.secondary : score.primary;
}

ContestFacts holdContest(TarqDlnaResSelection& selection, ResContestKind kind, int32_t region, int deciding,
                         const std::vector<ResFacts>& res, std::vector<TarqDlnaResMetadata>& records) {
  const int count = static_cast<int>(records.size());
  ContestFacts facts;
  facts.kind = kind;
  facts.reason = reasonFor(kind, selection, records);
  facts.scores.resize(records.size());
  facts.outFor.resize(records.size());
  if (kind == ResContestKind::kMpo) {
    facts.photos.resize(records.size());
    facts.winner = TarqDlnaResSelection::pickMpo(count, records.data(), facts.photos.data());
    selection.selectPhotoResIndex_MPO(count, records.data());  // writes the winner's format
    if (facts.winner < 0) {
      facts.kind = ResContestKind::kPhoto;
      facts.reason += ", but the contest for such files has no candidate";
      facts.photos.clear();
    }
  }
  if (facts.kind != ResContestKind::kMpo)
    facts.winner = runContest(facts.kind, selection, count, records.data(), facts.scores.data());
  explainOut(facts, region, records[static_cast<size_t>(deciding)].category, res, records);
  facts.lead = facts.kind == ResContestKind::kMpo ? mpoLeadOf(facts) : leadOf(facts);
  return facts;
}
