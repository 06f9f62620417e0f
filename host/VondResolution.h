#ifndef VOND_RESOLUTION_H_
#define VOND_RESOLUTION_H_

#include "TarqHostApi.h"

// The "resolution" attribute of a `res` element: width, separator, height.
// Threads: const operations may run at once on any threads.
// Source: ContentDirectory:1, 2.8.3.
class TARQ_HOST_API VondResolution {
 public:
  // Digits, the separator, digits, each number within a signed 32-bit integer, and nothing else.
  // Returns: a new object, also for a string that does not parse.
  // Null: returned when `string` is null and on allocation failure.
  // Ownership: the caller deletes it.
  static VondResolution* Parse(const char* string, int separator) noexcept;
  virtual ~VondResolution();

  // Returns: 0 when the string was parsed, -1 when it was not.
  int GetStatus() const noexcept { return status_; }
  // Returns: 0 when the string was not parsed.
  // Units: pixels.
  int GetWidth() const noexcept { return width_; }
  int GetHeight() const noexcept { return height_; }

 private:
  VondResolution(int status, int width, int height) noexcept;

  int status_;
  int width_;
  int height_;
};

#endif  // VOND_RESOLUTION_H_
