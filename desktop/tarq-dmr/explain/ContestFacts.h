#ifndef TARQ_DMR_CONTEST_FACTS_H_
#define TARQ_DMR_CONTEST_FACTS_H_

#include <optional>

#include "Explanation.h"

// Holds the contest that the records come to, and says why this one, who is out for what, and what the winner
// is ahead by. `deciding`: the record that told the media kind; formats are written into the records.
ContestFacts holdContest(TarqDlnaResSelection& selection, ResContestKind kind, int32_t region, int deciding,
                         const std::vector<ResFacts>& res, std::vector<TarqDlnaResMetadata>& records);

// The points that count for a candidate, of its two scores.
const ResPoints& countedPoints(const ResScore& score);

#endif  // TARQ_DMR_CONTEST_FACTS_H_
