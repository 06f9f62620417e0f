#ifndef VOND_PROTOCOL_INFO_H_
#define VOND_PROTOCOL_INFO_H_

#include <cstddef>

#include "TarqHostApi.h"

// A UPnP protocolInfo text (ConnectionManager:1, 2.5.2) split into its four fields:
// protocol ":" network ":" content format ":" additional info. Only the first three ":" split.
// Owns: a copy of the first three fields. The last one is the end of the text itself, which must outlive the
// object and whoever refers to that field.
class TARQ_HOST_API VondProtocolInfo {
 public:
  explicit VondProtocolInfo(const char* text) noexcept;  // null: not valid
  ~VondProtocolInfo();
  VondProtocolInfo(const VondProtocolInfo&) = delete;
  VondProtocolInfo& operator=(const VondProtocolInfo&) = delete;

  bool IsValid() const noexcept { return fields_[1] != nullptr; }  // false: the text has no ":" at all
  // Field n, counted from 1; null when it is missing.
  const char* GetField(int n) const noexcept {
    return IsValid() && n >= 1 && n <= kFields ? fields_[n - 1] : nullptr;
  }

 private:
  static constexpr int kFields = 4;
  static constexpr int kInlineBytes = 128;

  char* copy_ = nullptr;  // `inline_`, or a heap block for longer fields
  const char* fields_[kFields] = {};
  char inline_[kInlineBytes];
};

#endif  // VOND_PROTOCOL_INFO_H_
