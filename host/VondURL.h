#ifndef VOND_URL_H_
#define VOND_URL_H_

#include "TarqHostApi.h"
#include "VondString.h"

// The parts of a URL that the renderer looks at: scheme "://" [userinfo "@"] host [":" port] ... (RFC
// 3986 3.2).
class TARQ_HOST_API VondURL {
 public:
  // A new object that the caller deletes, or null when `text` is null or no absolute URL with a host.
  // `base` would resolve a relative reference; this library takes absolute URLs only and ignores it.
  static VondURL* Parse(const char* text, const VondURL* base) noexcept;
  ~VondURL();

  const char* GetScheme() const noexcept;  // as written
  const char* GetHost() const noexcept;    // as written; an IPv6 address without its brackets

 private:
  VondURL() noexcept;

  VondString scheme_;
  VondString host_;
};

#endif  // VOND_URL_H_
