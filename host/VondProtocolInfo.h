#ifndef VOND_PROTOCOL_INFO_H_
#define VOND_PROTOCOL_INFO_H_

#include <cstddef>

#include "TarqHostApi.h"

// A UPnP protocolInfo string split into its four fields: protocol ":" network ":" content format ":"
// additional info. Only the first three ":" split.
// Ownership: the object copies the string; the fields live as long as the object.
// Threads: const operations may run at once on any threads.
// Source: ConnectionManager:1, 2.5.2.
class TARQ_HOST_API VondProtocolInfo {
 public:
  // Null: not valid.
  // Errors: not valid on allocation failure.
  explicit VondProtocolInfo(const char* string) noexcept;
  ~VondProtocolInfo();
  VondProtocolInfo(const VondProtocolInfo&) = delete;
  VondProtocolInfo& operator=(const VondProtocolInfo&) = delete;

  // Returns: false when the string has no ":" at all.
  bool IsValid() const noexcept { return fields_[1] != nullptr; }
  // Returns: field `n`, from 1.
  // Null: returned when the field is missing.
  const char* GetField(int n) const noexcept {
    return IsValid() && n >= 1 && n <= kFields ? fields_[n - 1] : nullptr;
  }

 private:
  static constexpr int kFields = 4;
  static constexpr size_t kInlineBytes = 256;

  char* copy_ = nullptr;
  const char* fields_[kFields] = {};
  // The usual protocolInfo needs no heap.
  char inlineCopy_[kInlineBytes];
};

#endif  // VOND_PROTOCOL_INFO_H_
