#ifndef MEDIA_CATEGORY_H_
#define MEDIA_CATEGORY_H_

#include <cstdint>

// The media category of a `res` element, and the media kind of a whole object. The host reads the numbers.
enum MediaCategory : int32_t {
  kCategoryPhoto = 0,
  kCategoryMusic = 1,
  kCategoryVideo = 2,
  kCategoryUnknown = 3,
};

#endif  // MEDIA_CATEGORY_H_
