#ifndef VOND_PROTOCOL_INFO_H_
#define VOND_PROTOCOL_INFO_H_

#include <cstddef>

#include "TarqHostApi.h"

// A UPnP protocolInfo text (ConnectionManager:1, 2.5.2) split into its four fields:
// protocol ":" network ":" content format ":" additional info. Only the first three ":" split.
// Owns: a copy of the text; the fields point into it.
class TARQ_HOST_API VondProtocolInfo {
 public:
  explicit VondProtocolInfo(const char* text) noexcept;  // null: not valid
  ~VondProtocolInfo();
  VondProtocolInfo(const VondProtocolInfo&) = delete;
  VondProtocolInfo& operator=(const VondProtocolInfo&) = delete;

  bool IsValid() const noexcept;               // false: the text has no ":" at all
  const char* GetField(int n) const noexcept;  // field n, counted from 1; null when it is missing

 private:
  static constexpr int kFields = 4;
  static constexpr size_t kInlineBytes = 256;

  char* copy_ = nullptr;  // `inline_`, or a heap block for a longer text
  const char* fields_[kFields] = {};
  char inline_[kInlineBytes];
};

#endif  // VOND_PROTOCOL_INFO_H_
