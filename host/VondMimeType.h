#ifndef VOND_MIME_TYPE_H_
#define VOND_MIME_TYPE_H_

#include <string_view>

#include "TarqHostApi.h"

// A MIME type: type "/" subtype, both tokens of RFC 7230 3.2.6, and optional parameters after ";".
// Owns: nothing; the text must outlive the object.
class TARQ_HOST_API VondMimeType {
 public:
  explicit VondMimeType(const char* text) noexcept;  // null: not valid

  bool IsValid() const noexcept { return !type_.empty(); }
  // Ignores case and parameters. A pattern whose subtype is "*" matches every subtype of its type.
  // False for a type that is not valid.
  bool Match(const char* pattern) const noexcept {
    return IsValid() && pattern != nullptr && mayMatch(*pattern) && matchWhole(pattern);
  }

 private:
  // Nearly all patterns differ in the first letter already. 0x20 is what sets the cases of a letter apart.
  bool mayMatch(char first) const noexcept { return ((first ^ type_.front()) & ~0x20) == 0; }
  bool matchWhole(const char* pattern) const noexcept;

  std::string_view type_;  // empty when not valid
  std::string_view subtype_;
};

#endif  // VOND_MIME_TYPE_H_
