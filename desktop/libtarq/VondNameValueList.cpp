#include "VondNameValueList.h"

#include <cstdlib>
#include <cstring>

#include "AsciiText.h"

namespace {

// Whether the value of the item from `begin` to `end`, which a quote ends, has another one before it.
bool isQuotedValue(const char* begin, const char* end) {
  const auto* value = static_cast<const char*>(std::memchr(begin, '=', static_cast<size_t>(end - begin)));
  if (value == nullptr) return false;
  value = skipBlanks(value + 1);
  return *value == '"' && end - value >= 2;
}

}  // namespace

VondNameValueList::VondNameValueList(const char* text) noexcept {
  if (text == nullptr) return;
  const size_t length = std::strlen(text);
  copy_ = copyText(text, length, inlineText_);
  valid_ = copy_ != nullptr && split(copy_ + length);
}

VondNameValueList::~VondNameValueList() {
  if (copy_ != inlineText_) std::free(copy_);
  if (items_ != inlineItems_) std::free(items_);
}

bool VondNameValueList::endsName(const Item& item, size_t length, const char*& value) noexcept {
  const char* behind = skipBlanks(item.text + length);
  if (*behind == '=') value = skipBlanks(behind + 1) + (item.quoted ? 1 : 0);
  return *behind == '=' || *behind == '\0';
}

// Cuts the copy, which ends at `end`, into items. Where a name ends is looked up when it is asked for: few of
// them ever are. False: an item without a name, or no memory.
bool VondNameValueList::split(char* end) noexcept {
  for (char* next = copy_; next < end;) {
    char* begin = next;
    char* itemEnd = std::strchr(begin, ';');
    if (itemEnd == nullptr) itemEnd = end;
    next = itemEnd + 1;
    while (begin != itemEnd && isBlank(*begin)) ++begin;
    if (begin == itemEnd) continue;
    if (*begin == '=' || (count_ == capacity_ && !grow())) return false;
    while (isBlank(itemEnd[-1])) --itemEnd;
    const bool quoted = itemEnd[-1] == '"' && isQuotedValue(begin, itemEnd);
    if (quoted) --itemEnd;
    *itemEnd = '\0';
    items_[count_++] = {begin, static_cast<size_t>(itemEnd - begin), quoted};
  }
  return true;
}

bool VondNameValueList::grow() noexcept {
  const bool first = items_ == inlineItems_;
  auto* grown = static_cast<Item*>(std::realloc(first ? nullptr : items_, 2 * capacity_ * sizeof(Item)));
  if (grown == nullptr) return false;
  if (first) std::memcpy(grown, inlineItems_, sizeof inlineItems_);
  items_ = grown;
  capacity_ *= 2;
  return true;
}
