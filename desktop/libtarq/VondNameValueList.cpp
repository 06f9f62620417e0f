#include "VondNameValueList.h"

#include <cstdlib>
#include <cstring>

#include "AsciiText.h"

namespace {

// The part of a writable text between `begin` and `end`.
struct Part {
  char* begin;
  char* end;

  bool isEmpty() const { return begin == end; }
  size_t length() const { return static_cast<size_t>(end - begin); }
};

inline Part withoutBlanks(Part part) {
  while (!part.isEmpty() && isBlank(*part.begin)) ++part.begin;
  while (!part.isEmpty() && isBlank(part.end[-1])) --part.end;
  return part;
}

Part withoutQuotes(Part part) {
  const bool quoted = part.length() >= 2 && *part.begin == '"' && part.end[-1] == '"';
  return quoted ? Part{part.begin + 1, part.end - 1} : part;
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

// The names of one list begin alike ("DLNA.ORG_..."): length and last byte tell them apart soonest.
const char* VondNameValueList::find(std::string_view name) const noexcept {
  if (!valid_ || name.empty()) return nullptr;
  for (const Item* item = items_; item != items_ + count_; ++item) {
    if (item->nameLength == name.size() && item->name[name.size() - 1] == name.back() &&
        std::memcmp(item->name, name.data(), name.size()) == 0) {
      return item->value;
    }
  }
  return nullptr;
}

// Cuts the copy, which ends at `end`, into items. False: an item without a name, or no memory.
bool VondNameValueList::split(char* end) noexcept {
  for (char* item = copy_; item < end;) {
    char* itemEnd = std::strchr(item, ';');
    if (itemEnd == nullptr) itemEnd = end;
    if (!addItem(item, itemEnd)) return false;
    item = itemEnd + 1;
  }
  return true;
}

bool VondNameValueList::addItem(char* begin, char* end) noexcept {
  char* equals = static_cast<char*>(std::memchr(begin, '=', static_cast<size_t>(end - begin)));
  const Part name = withoutBlanks({begin, equals != nullptr ? equals : end});
  if (name.isEmpty()) return equals == nullptr;
  if (count_ == capacity_ && !grow()) return false;
  Item& item = items_[count_++];
  item = {name.begin, name.length(), nullptr};
  if (equals == nullptr) return true;
  const Part value = withoutQuotes(withoutBlanks({equals + 1, end}));
  *value.end = '\0';
  item.value = value.begin;
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
