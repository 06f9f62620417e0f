#ifndef VOND_MIME_TYPE_H_
#define VOND_MIME_TYPE_H_

#include <string_view>

#include "TarqHostApi.h"

// A MIME type: type "/" subtype, both tokens, then optional parameters after ";". White space at its ends and
// before the ";" is allowed.
// Ownership: the object refers to the string, which must outlive it.
// Threads: const operations may run at once on any threads.
// Source: RFC 7230 3.2.6 (token).
class TARQ_HOST_API VondMimeType {
 public:
  // Null: not valid.
  explicit VondMimeType(const char* string) noexcept;

  bool IsValid() const noexcept { return !type_.empty(); }
  // Compares without case and without parameters; the subtype "*" of a pattern matches every subtype.
  // Returns: false for a type that is not valid.
  // Null: a null pattern matches nothing.
  bool Match(const char* pattern) const noexcept;

 private:
  // Empty when not valid.
  std::string_view type_;
  std::string_view subtype_;
};

#endif  // VOND_MIME_TYPE_H_
