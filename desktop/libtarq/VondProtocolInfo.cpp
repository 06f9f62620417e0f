#include "VondProtocolInfo.h"

#include <cstdlib>
#include <cstring>

#include "AsciiText.h"

VondProtocolInfo::VondProtocolInfo(const char* string) noexcept {
  if (string == nullptr) return;
  const size_t bytes = std::strlen(string) + 1;
  copy_ = allocate(bytes, inlineCopy_);
  if (copy_ == nullptr) return;
  std::memcpy(copy_, string, bytes);
  char* field = copy_;
  fields_[0] = field;
  for (int n = 1; n < kFields && (field = std::strchr(field, ':')) != nullptr; ++n) {
    *field++ = '\0';
    fields_[n] = field;
  }
}

VondProtocolInfo::~VondProtocolInfo() {
  if (copy_ != inlineCopy_) std::free(copy_);
}
