#ifndef RES_CONTEST_H_
#define RES_CONTEST_H_

#include <cstdint>
#include <memory>
#include <new>
#include <string_view>

#include "TarqDlnaResMetadata.h"

// What the points contests of photos, music and video have in common.
//
// A contest is three steps: classify each candidate (what format is it, is it in at all), score it (points by
// cause), pick the winner (the first with the highest score above 0). A candidate that is out keeps 0 points.

// The points of one candidate, apart by cause, so that a choice can be explained; summed here and nowhere
// else.
struct ResPoints {
  int32_t format = 0;
  int32_t position = 0;
  int32_t notConverted = 0;
  int32_t resolution = 0;
  int32_t nearest = 0;

  int32_t total() const { return format + position + notConverted + resolution + nearest; }
};

// The rule that let a candidate in, or kept it out.
enum class ResRule : uint8_t {
  kUnknown,             // out: no rule knows its profile name, MIME type and extension
  kProfile,             // a known profile name
  kProfileNotInRegion,  // out: known, but not played in this region
  kMimeType,            // a known MIME type, and no profile name that would say otherwise
  kMimeTypeAmr,         // out: the MIME type would do, but the extension is "amr" or missing
  kMimeAndExtension,    // no profile name; MIME type and extension, or the type alone, tell the format
  kMimeGuess,           // no profile name; the MIME type lets guess the format
  kUnknownProfileMime,  // a profile name that nobody knows, beside a MIME type and extension that do
  kSeekable,            // Windows Media whose server declares byte-range seek
  kNotSeekable,         // Windows Media whose server does not
};

// Most contests use the primary score alone. The two for Windows Media keep candidates that are harder to
// seek, or only guessed, apart from the others in a secondary one.
struct ResScore {
  ResPoints primary;
  ResPoints secondary;
  ResRule rule = ResRule::kUnknown;

  // To each of the two that is above 0 at this moment.
  void addWherePositive(int32_t ResPoints::*cause, int32_t points) {
    if (primary.total() > 0) primary.*cause += points;
    if (secondary.total() > 0) secondary.*cause += points;
  }
};

// One score per candidate, all 0; null when `count` is below 1 or there is no memory.
inline std::unique_ptr<ResScore[]> newScores(int count) {
  if (count < 1) return nullptr;
  return std::unique_ptr<ResScore[]>(new (std::nothrow) ResScore[static_cast<size_t>(count)]);
}

// Keeps the first of the highest scores above 0. Offer the candidates from index 0 upward.
struct BestScore {
  int index = -1;
  int32_t score = 0;

  void offer(int candidate, int32_t points) {
    if (points <= score) return;
    score = points;
    index = candidate;
  }
};

int bestPrimary(int count, const ResScore* scores);

inline constexpr int32_t kPositionStep = 10;
inline constexpr int32_t kNotConvertedPoints = 1000;
inline constexpr int32_t kFullHdPoints = 700;
inline constexpr int32_t kNearestPoints = 500;

inline constexpr int32_t kFullHdWidth = 1920;
inline constexpr int32_t kFullHdHeight = 1080;
inline constexpr int32_t kFullHdArea = kFullHdWidth * kFullHdHeight;
inline constexpr int32_t kMaxSide = 16384;  // pixels that the renderer can still scale

// A picture size as the contests see it.
struct PictureSize {
  enum Kind { kUnknown, kFullHd, kTooLarge, kAbove, kBelow, kSameArea };  // above, below: full HD, by area
  Kind kind = kUnknown;
  int32_t distance = 0;  // from the full-HD area, for kAbove and kBelow
};

// A text that does not parse measures as -1 x -1: a picture of area 1. An absent text is unknown.
PictureSize measurePicture(const VondString& resolution);

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

// What differs between the contests of photos and of videos.
struct PictureContest {
  int32_t firstPosition;  // points of candidate 0
  int32_t tooLarge;       // points of a picture beyond kMaxSide
};

// The contest of photos and of videos. `classify` takes a record, writes its format and gives the points for
// it, or nothing when the candidate is out. Fills `scores`; returns the winner's index or -1.
template <class Classify>
int runPictureContest(const PictureContest& contest, int count, TarqDlnaResMetadata* records,
                      ResScore* scores, Classify classify) {
  NearestFullHd nearest;
  for (int i = 0; i < count; ++i) {
    if (!classify(records[i], scores[i])) continue;
    ResPoints& points = scores[i].primary;
    points.position = contest.firstPosition - kPositionStep * i;
    if (records[i].notConverted) points.notConverted = kNotConvertedPoints;
    const PictureSize size = measurePicture(records[i].resolution);
    if (size.kind == PictureSize::kFullHd) points.resolution = kFullHdPoints;
    if (size.kind == PictureSize::kTooLarge) points.resolution = contest.tooLarge;
    nearest.offer(i, size);
  }
  if (nearest.candidate() != -1) scores[nearest.candidate()].primary.nearest = kNearestPoints;
  return bestPrimary(count, scores);
}

// A candidate of the multi-picture contest, which compares ranks instead of adding points.
struct MpoPhoto {
  int32_t rank = 0;      // by the number of pictures, higher is better; 0: out
  int32_t overArea = 0;  // pixels above (below: negative) the full-HD area
  bool fullHd = false;
};

// A profile name, the format it stands for, and the MIME type that stands for it where no profile is named.
struct NamedFormat {
  std::string_view profile;
  std::string_view format;
  std::string_view mimeType;
};

// Whether the fourth field declares byte-range seek: DLNA.ORG_OP agrees with "01" or "11" over its own
// length, so that servers which write "1", "0" or nothing after the "=" pass too.
bool declaresByteSeek(const char* fourthField);

#endif  // RES_CONTEST_H_
