#ifndef RES_POINTS_H_
#define RES_POINTS_H_

#include <cstdint>

// Every number that a points contest gives, and the points of one candidate.

inline constexpr int32_t kKnownFormatPoints = 200;
inline constexpr int32_t kWeakFormatPoints = 100;  // a guess, or Windows Media that is hard to seek in
inline constexpr int32_t kPositionStep = 10;       // less for each position after the first
inline constexpr int32_t kNotConvertedPoints = 1000;
inline constexpr int32_t kFullHdPoints = 700;
inline constexpr int32_t kNearestPoints = 500;  // for the picture nearest to full HD

// What differs between the contests.
struct ContestPoints {
  int32_t firstPosition;  // of candidate 0
  int32_t tooLarge;       // of a picture with a side above kMaxSide
};
inline constexpr ContestPoints kPhotoPoints = {.firstPosition = 100, .tooLarge = -1700};
inline constexpr ContestPoints kMusicPoints = {.firstPosition = 1000, .tooLarge = 0};
inline constexpr ContestPoints kVideoPoints = {.firstPosition = 1000, .tooLarge = -3000};

// "application/ogg" may just as well be video: its first position is worth less.
inline constexpr int32_t kApplicationOggFirstPosition = 900;

inline constexpr int32_t kFullHdWidth = 1920;  // pixels
inline constexpr int32_t kFullHdHeight = 1080;
inline constexpr int32_t kFullHdArea = kFullHdWidth * kFullHdHeight;
inline constexpr int32_t kMaxSide = 16384;  // the renderer cannot scale more pixels than this

// The points of one candidate by cause, so that a choice can be explained. They are added up here only.
struct ResPoints {
  int32_t format = 0;
  int32_t position = 0;
  int32_t notConverted = 0;
  int32_t resolution = 0;
  int32_t nearest = 0;

  int32_t total() const { return format + position + notConverted + resolution + nearest; }
};

#endif  // RES_POINTS_H_
