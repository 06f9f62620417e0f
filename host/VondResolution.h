#ifndef VOND_RESOLUTION_H_
#define VOND_RESOLUTION_H_

#include "TarqHostApi.h"

// The "resolution" attribute of a `res` element (ContentDirectory:1, 2.8.3): width, separator, height in
// pixels.
class TARQ_HOST_API VondResolution {
 public:
  // A new object that the caller deletes; null when `text` is null or there is no memory. Digits, the
  // separator, digits, each number within a signed 32-bit integer, and nothing else; otherwise the object's
  // status says so.
  static VondResolution* Parse(const char* text, int separator) noexcept;
  virtual ~VondResolution();

  int GetStatus() const noexcept { return status_; }  // 0: parsed
  int GetWidth() const noexcept { return width_; }    // pixels; 0 when not parsed
  int GetHeight() const noexcept { return height_; }

 private:
  VondResolution(int status, int width, int height) noexcept;

  int status_;
  int width_;
  int height_;
};

#endif  // VOND_RESOLUTION_H_
