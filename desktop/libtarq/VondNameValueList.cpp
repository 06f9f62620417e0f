#include "VondNameValueList.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "AsciiText.h"

namespace {

// Returns: the first `wanted` in [begin, end), or `end`.
const char* find(const char* begin, const char* end, char wanted) {
  const void* found = std::memchr(begin, wanted, static_cast<size_t>(end - begin));
  return found != nullptr ? static_cast<const char*>(found) : end;
}

std::string_view unquoted(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == '"' && value.back() == '"';
  return quoted ? value.substr(1, value.size() - 2) : value;
}

// Ends `value`, a part of the list's own copy, with NUL. The byte after it is no longer needed.
const char* terminated(std::string_view value) {
  const_cast<char*>(value.data())[value.size()] = '\0';
  return value.data();
}

}  // namespace

VondNameValueList::VondNameValueList(const char* string) noexcept {
  if (string == nullptr) return;
  const size_t bytes = std::strlen(string) + 1;
  if (bytes > UINT32_MAX) return;
  copy_ = allocate(bytes, inlineCopy_);
  items_ = allocate(bytes / 2, inlineItems_);
  if (copy_ == nullptr || items_ == nullptr) return;
  std::memcpy(copy_, string, bytes);
  valid_ = split({copy_, bytes - 1});
}

VondNameValueList::~VondNameValueList() {
  if (copy_ != inlineCopy_) std::free(copy_);
  if (items_ != inlineItems_) std::free(items_);
}

// Returns: false when an item has no name before its "=".
bool VondNameValueList::split(std::string_view copy) noexcept {
  const char* const end = copy.data() + copy.size();
  const auto position = [this](const char* byte) { return static_cast<uint32_t>(byte - copy_); };
  for (const char *begin = copy.data(), *next; begin < end; begin = next) {
    const char* itemEnd = find(begin, end, ';');
    const char* nameEnd = find(begin, itemEnd, '=');
    next = itemEnd + 1;
    const std::string_view name = trim({begin, nameEnd});
    if (name.empty() && nameEnd != itemEnd) return false;
    if (name.empty()) continue;
    uint32_t value = 0;
    if (nameEnd != itemEnd) value = position(terminated(unquoted(trim({nameEnd + 1, itemEnd}))));
    items_[count_++] = {position(name.data()), static_cast<uint32_t>(name.size()), value};
  }
  return true;
}
