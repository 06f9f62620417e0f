#include "VondString.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

VondString::VondString(const char* string) noexcept { *this = string; }

VondString::VondString(const char* string, size_t length) noexcept { assign(string, length); }

VondString::VondString(const VondString& other) noexcept { assign(other.data_, other.length_); }

VondString::VondString(VondString&& other) noexcept { take(other); }

VondString& VondString::operator=(const VondString& other) noexcept {
  if (this != &other) assign(other.data_, other.length_);
  return *this;
}

VondString& VondString::operator=(VondString&& other) noexcept {
  if (this != &other) {
    release();
    take(other);
  }
  return *this;
}

VondString& VondString::append(const char* string) noexcept {
  if (string == nullptr) return *this;
  const size_t added = std::strlen(string);
  if (reserve(length_ + added) == nullptr) return *this;
  std::memcpy(data_ + length_, string, added + 1);
  length_ += added;
  return *this;
}

// `string` may be a part of this one.
void VondString::assign(const char* string, size_t length) noexcept {
  if (string == nullptr) return release();
  if (length < room()) {
    if (data_ == nullptr) data_ = inline_;
    std::memmove(data_, string, length);
  } else {
    char* block = static_cast<char*>(std::malloc(length + 1));
    if (block != nullptr) std::memcpy(block, string, length);
    release();
    if (block == nullptr) return;
    data_ = block;
    capacity_ = length + 1;
  }
  data_[length] = '\0';
  length_ = length;
}

// Makes room for `length` bytes and a NUL after them, and keeps what is there.
// Null: no memory; the string is absent.
char* VondString::reserve(size_t length) noexcept {
  if (length >= room()) return grow(length);
  if (data_ == nullptr) data_ = inline_;
  return data_;
}

// To at least twice the room, so that building a long string piece by piece takes linear time.
char* VondString::grow(size_t length) noexcept {
  const size_t wanted = std::max(length + 1, 2 * capacity_);
  char* block = static_cast<char*>(std::malloc(wanted));
  if (block != nullptr && length_ != 0) std::memcpy(block, data_, length_);
  const size_t kept = length_;
  release();
  if (block == nullptr) return nullptr;
  data_ = block;
  length_ = kept;
  capacity_ = wanted;
  return data_;
}

// Becomes what `other` is; `other` becomes absent. This string must be absent.
void VondString::take(VondString& other) noexcept {
  const bool isInline = other.data_ == other.inline_;
  if (isInline) std::memcpy(inline_, other.inline_, other.length_ + 1);
  data_ = isInline ? inline_ : other.data_;
  length_ = other.length_;
  capacity_ = other.capacity_;
  other.data_ = nullptr;
  other.length_ = 0;
  other.capacity_ = 0;
}
