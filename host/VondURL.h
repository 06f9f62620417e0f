#ifndef VOND_URL_H_
#define VOND_URL_H_

#include "TarqHostApi.h"
#include "VondString.h"

// The parts of a URL that matter to a renderer: scheme "://" [userinfo "@"] host [":" port] ...
// Threads: const operations may run at once on any threads.
// Source: RFC 3986 3.2.
class TARQ_HOST_API VondURL {
 public:
  // `base` would resolve a relative reference; this library takes absolute URLs only and ignores it.
  // Returns: a new object.
  // Null: returned when `string` is null or is not an absolute URL with a host, and on allocation failure.
  // Ownership: the caller deletes it.
  static VondURL* Parse(const char* string, const VondURL* base) noexcept;
  ~VondURL();

  // Returns: the scheme as written; never null.
  const char* GetScheme() const noexcept;
  // Returns: the host as written, an IPv6 address without its brackets; never null.
  const char* GetHost() const noexcept;

 private:
  VondURL() noexcept;

  VondString scheme_;
  VondString host_;
};

#endif  // VOND_URL_H_
