#ifndef VOND_NAME_VALUE_LIST_H_
#define VOND_NAME_VALUE_LIST_H_

#include <cstddef>
#include <cstring>
#include <string_view>

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
  // The value, or null when the name is missing or has no value.
  const char* GetParameter(const char* name) const noexcept {
    return name == nullptr ? nullptr
                           : find({name, std::strlen(name)});  // inline: the length of a constant is one
  }

 private:
  const char* find(std::string_view name) const noexcept;
  struct Item {
    const char* name;   // not NUL-terminated
    size_t nameLength;  // bytes, at least one
    const char* value;  // null: none
  };
  static constexpr size_t kInlineBytes = 256;
  static constexpr size_t kInlineItems = 16;

  bool split(char* end) noexcept;
  bool addItem(char* begin, char* end) noexcept;
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
