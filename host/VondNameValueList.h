#ifndef VOND_NAME_VALUE_LIST_H_
#define VOND_NAME_VALUE_LIST_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "TarqHostApi.h"

// A list of `name=value` items separated by ";", as in the fourth protocolInfo field and in parameterised
// content formats. White space around names and values is stripped, as is one pair of double quotes around a
// value. An item without "=" is a name without a value. "*" and the empty string are an empty list.
// Ownership: the object copies the string; the values that it returns live as long as the object.
// Threads: const operations may run at once on any threads.
// Source: DLNA guidelines, part 1-1, 7.4.1.3.17.
class TARQ_HOST_API VondNameValueList {
 public:
  // Null: not valid.
  // Errors: not valid when an item has an empty name before its "=", from 4 GiB on, and on allocation failure.
  explicit VondNameValueList(const char* string) noexcept;
  ~VondNameValueList();
  VondNameValueList(const VondNameValueList&) = delete;
  VondNameValueList& operator=(const VondNameValueList&) = delete;

  bool IsValid() const noexcept { return valid_; }

  // `name` is compared with case. It is not empty and has no "=", no ";" and no white space at its ends.
  // Inline because the compiler knows the length of a constant name.
  // Returns: the value of the first item of that name.
  // Null: returned when no item has the name, when that item has no value, when the list is not valid, and
  //   when `name` is null.
  const char* GetParameter(const char* name) const noexcept {
    if (!valid_ || name == nullptr) return nullptr;
    const size_t length = std::strlen(name);
    for (const Item* item = items_; item != items_ + count_; ++item)
      if (item->nameLength == length && std::memcmp(copy_ + item->name, name, length) == 0)
        return item->value != 0 ? copy_ + item->value : nullptr;
    return nullptr;
  }

 private:
  // Positions in the copy: pointers would make a list of two million items twice as large.
  struct Item {
    uint32_t name;
    uint32_t nameLength;
    // 0: the item has no value.
    uint32_t value;
  };
  static constexpr size_t kInlineBytes = 256;

  bool split(std::string_view copy) noexcept;

  char* copy_ = nullptr;
  Item* items_ = nullptr;
  size_t count_ = 0;
  bool valid_ = false;
  // The usual list needs no heap. An item has at least two bytes, its ";" or NUL included.
  char inlineCopy_[kInlineBytes];
  Item inlineItems_[kInlineBytes / 2];
};

// The fourth protocolInfo field.
class TARQ_HOST_API VondPI4thField : public VondNameValueList {
 public:
  using VondNameValueList::VondNameValueList;
};

#endif  // VOND_NAME_VALUE_LIST_H_
