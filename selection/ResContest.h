#ifndef RES_CONTEST_H_
#define RES_CONTEST_H_

#include <cstdint>
#include <string_view>

#include "TarqDlnaResMetadata.h"

// What the points contests of photos, music and video have in common.
//
// A contest is three steps: classify each candidate (which format is it, is it in at all), score it
// (points by cause), pick the winner (the first with the highest score above 0). A candidate that is out
// keeps 0 points.

// Keeps the first of the highest scores above 0. Offer the candidates from index 0 upward.
struct BestScore {
  int index = -1;
  int32_t score = 0;

  void offer(int candidate, int32_t points) {
    if (points <= score) return;
    score = points;
    index = candidate;
  }
  void offerAll(int count, const TarqDlnaResMetadata* records, ResPoints ResScore::*points) {
    for (int i = 0; i < count; ++i) offer(i, (records[i].score.*points).total());
  }
};

int bestPrimary(int count, const TarqDlnaResMetadata* records);

// A picture size as the contests see it.
struct PictureSize {
  enum Kind { kUnknown, kFullHd, kTooLarge, kAbove, kBelow, kSameArea };  // above, below: full HD, by area
  Kind kind = kUnknown;
  int32_t distance = 0;  // from the full-HD area, for kAbove and kBelow
};

// Null: unknown. A string that does not parse measures as -1 x -1: a picture of area 1.
PictureSize measurePicture(const char* resolution);

// The smallest picture above full HD or, when there is none, the largest below; of equals the first.
class NearestFullHd {
 public:
  void offer(int candidate, const PictureSize& size);
  int candidate() const { return above_ != -1 ? above_ : below_; }  // -1: none

 private:
  int above_ = -1;
  int below_ = -1;
  int32_t aboveDistance_ = INT32_MAX;
  int32_t belowDistance_ = INT32_MAX;
};

// The contest of photos and of videos. `classify` takes a record and returns whether the candidate is in; it
// then has written format, rule and format points.
// Returns: the winner's index or -1.
template <class Classify>
int runPictureContest(const ContestPoints& points, int count, TarqDlnaResMetadata* records,
                      Classify classify) {
  NearestFullHd nearest;
  for (int i = 0; i < count; ++i) {
    TarqDlnaResMetadata& record = records[i];
    record.score = {};
    if (!classify(record)) continue;
    ResPoints& own = record.score.primary;
    own.position = points.firstPosition - kPositionStep * i;
    if (record.notConverted) own.notConverted = kNotConvertedPoints;
    const PictureSize size = measurePicture(record.resolution);
    if (size.kind == PictureSize::kFullHd) own.resolution = kFullHdPoints;
    if (size.kind == PictureSize::kTooLarge) own.resolution = points.tooLarge;
    nearest.offer(i, size);
  }
  if (nearest.candidate() != -1) records[nearest.candidate()].score.primary.nearest = kNearestPoints;
  return bestPrimary(count, records);
}

// The index of the first record that passes `test`, or -1.
template <class Test>
int firstThat(int count, const TarqDlnaResMetadata* records, Test test) {
  for (int i = 0; i < count; ++i) {
    if (test(records[i])) return i;
  }
  return -1;
}

// A profile name, the format it stands for, and the MIME type that stands for it where no profile is named.
struct NamedFormat {
  std::string_view profile;
  const char* format;
  std::string_view mimeType;
};

// Whether the fourth field declares byte seek: DLNA.ORG_OP agrees with "01" or "11" over its own length, so
// that servers which write "1", "0" or nothing after the "=" pass too.
bool declaresByteSeek(const char* fourthField);

#endif  // RES_CONTEST_H_
