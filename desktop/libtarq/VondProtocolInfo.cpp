#include "VondProtocolInfo.h"

#include <cstdlib>
#include <cstring>

#include "AsciiText.h"

VondProtocolInfo::VondProtocolInfo(const char* string) noexcept {
  if (string == nullptr) return;
  const char* colons[kFields - 1] = {};
  int count = 0;
  const char* last = string;
  while (count < kFields - 1 && (colons[count] = std::strchr(last, ':')) != nullptr)
    last = colons[count++] + 1;
  if (count == 0) return;

  const size_t head = static_cast<size_t>(last - string);
  copy_ = allocate(head, inlineCopy_);
  if (copy_ == nullptr) return;
  std::memcpy(copy_, string, head);
  fields_[0] = copy_;
  for (int n = 0; n < count; ++n) {
    const ptrdiff_t end = colons[n] - string;
    copy_[end] = '\0';
    fields_[n + 1] = n + 1 < count ? copy_ + end + 1 : last;
  }
}

VondProtocolInfo::~VondProtocolInfo() {
  if (copy_ != inlineCopy_) std::free(copy_);
}
