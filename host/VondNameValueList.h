#ifndef VOND_NAME_VALUE_LIST_H_
#define VOND_NAME_VALUE_LIST_H_

#include <cstddef>
#include <cstring>

#include "TarqHostApi.h"

// A list of `name=value` items separated by ";", as in the fourth protocolInfo field (DLNA guidelines,
// part 1-1, 7.4.1.3.17) and in parameterised content formats. Names are case-sensitive; of two equal names
// the first counts. White space around names and values goes, and so does one pair of double quotes around a
// value. An item without "=" is a name without a value. "*" and the empty text are an empty list.
// Owns: a copy of the text; the values point into it.
class TARQ_HOST_API VondNameValueList {
 public:
  explicit VondNameValueList(const char* text) noexcept;  // null: not valid
  ~VondNameValueList();
  VondNameValueList(const VondNameValueList&) = delete;
  VondNameValueList& operator=(const VondNameValueList&) = delete;

  bool IsValid() const noexcept { return valid_; }  // false: some item has an empty name before its "="
  // The value, or null when the name is missing or has no value. `name` as it would stand in the list: no "="
  // in it, no white space at its ends. Inline: of a constant the compiler knows length and bytes.
  const char* GetParameter(const char* name) const noexcept {
    const size_t length = name == nullptr ? 0 : std::strlen(name);
    if (!valid_ || length == 0) return nullptr;
    for (const Item* item = items_; item != items_ + count_; ++item) {
      // The names of one list begin alike ("DLNA.ORG_..."): the last byte tells them apart soonest.
      if (item->length < length || item->text[length - 1] != name[length - 1]) continue;
      const char* value = nullptr;
      if (std::memcmp(item->text, name, length) == 0 && endsName(*item, length, value)) return value;
    }
    return nullptr;
  }

 private:
  struct Item {  // as written, without blanks at its ends
    const char* text;
    size_t length;  // bytes, at least one
    bool quoted;    // its value is: the closing quote is cut off
  };
  static constexpr size_t kInlineBytes = 256;
  static constexpr size_t kInlineItems = 16;

  // Whether the name of `item` ends behind its first `length` bytes; then `value` becomes what it has.
  static bool endsName(const Item& item, size_t length, const char*& value) noexcept;
  bool split(char* end) noexcept;
  bool grow() noexcept;

  // The usual list needs no heap: a longer text or more items go there.
  char* copy_ = nullptr;
  Item* items_ = inlineItems_;
  size_t count_ = 0;
  size_t capacity_ = kInlineItems;
  bool valid_ = false;
  char inlineText_[kInlineBytes];
  Item inlineItems_[kInlineItems];
};

// The fourth protocolInfo field.
class TARQ_HOST_API VondPI4thField : public VondNameValueList {
 public:
  using VondNameValueList::VondNameValueList;
};

#endif  // VOND_NAME_VALUE_LIST_H_
