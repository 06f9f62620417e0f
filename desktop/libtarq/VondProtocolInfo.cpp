#include "VondProtocolInfo.h"

#include <cstdlib>
#include <cstring>

#include "AsciiText.h"

VondProtocolInfo::VondProtocolInfo(const char* text) noexcept {
  if (text == nullptr) return;
  copy_ = copyText(text, std::strlen(text), inline_);
  char* rest = copy_;
  for (int n = 0; n < kFields && rest != nullptr; ++n) {
    fields_[n] = rest;
    rest = n + 1 < kFields ? std::strchr(rest, ':') : nullptr;
    if (rest != nullptr) *rest++ = '\0';
  }
}

VondProtocolInfo::~VondProtocolInfo() {
  if (copy_ != inline_) std::free(copy_);
}

bool VondProtocolInfo::IsValid() const noexcept { return fields_[1] != nullptr; }

const char* VondProtocolInfo::GetField(int n) const noexcept {
  return IsValid() && n >= 1 && n <= kFields ? fields_[n - 1] : nullptr;
}
