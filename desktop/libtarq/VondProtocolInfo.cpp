#include "VondProtocolInfo.h"

#include <cstdlib>
#include <cstring>

#include "AsciiText.h"

VondProtocolInfo::VondProtocolInfo(const char* text) noexcept {
  if (text == nullptr) return;
  const char* colons[kFields - 1] = {};
  int count = 0;
  const char* last = text;  // the field behind the last ":"
  while (count < kFields - 1 && (colons[count] = std::strchr(last, ':')) != nullptr)
    last = colons[count++] + 1;
  if (count == 0) return;

  const size_t head = static_cast<size_t>(last - text);
  copy_ = copyText(text, head, inline_);
  if (copy_ == nullptr) return;
  fields_[0] = copy_;
  for (int n = 0; n < count; ++n) {
    const ptrdiff_t end = colons[n] - text;
    copy_[end] = '\0';
    fields_[n + 1] = n + 1 < count ? copy_ + end + 1 : last;
  }
}

VondProtocolInfo::~VondProtocolInfo() {
  if (copy_ != inline_) std::free(copy_);
}
