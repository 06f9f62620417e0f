#include "VondString.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

VondString::VondString(const char* text) noexcept { *this = text; }

VondString::VondString(const char* text, size_t length) noexcept { assign(text, length); }

VondString::VondString(const VondString& other) noexcept { assign(other.text_, other.length_); }

VondString::VondString(VondString&& other) noexcept { take(other); }

VondString& VondString::operator=(const VondString& other) noexcept {
  if (this != &other) assign(other.text_, other.length_);
  return *this;
}

VondString& VondString::operator=(VondString&& other) noexcept {
  if (this != &other) {
    release();
    take(other);
  }
  return *this;
}

// A part of this string always fits where the whole is, so nothing is released under `text`.
void VondString::set(const char* text, size_t length) noexcept {
  char* room = capacity_ == 0 && length < kInlineBytes ? inline_ : reserve(length);
  if (room == nullptr) return;
  std::memmove(room, text, length);
  room[length] = '\0';
  text_ = room;
  length_ = static_cast<uint32_t>(length);
}

VondString& VondString::append(const char* text) noexcept {
  if (text == nullptr) return *this;
  const size_t added = std::strlen(text);
  const size_t before = length_;
  char* room = reserve(before + added);
  if (room == nullptr) return *this;
  std::memcpy(room + before, text, added + 1);
  text_ = room;
  length_ = static_cast<uint32_t>(before + added);
  return *this;
}

// Room for `length` bytes and a NUL that begins with what is there. Null: no memory, the string is absent.
char* VondString::reserve(size_t length) noexcept {
  const bool ownText = capacity_ != 0 || text_ == inline_ || text_ == nullptr;
  const uint32_t room = capacity_ != 0 ? capacity_ : kInlineBytes;
  if (ownText && length < room) return capacity_ != 0 ? const_cast<char*>(text_) : inline_;

  // At least twice the room, so that building a long text piece by piece costs linear time.
  constexpr size_t kMaxRoom = std::numeric_limits<uint32_t>::max();
  const size_t wanted = std::min(std::max(length + 1, capacity_ != 0 ? size_t{2} * room : 0), kMaxRoom);
  char* block = length < kMaxRoom ? static_cast<char*>(std::malloc(wanted)) : nullptr;
  if (block == nullptr) {
    release();
    return nullptr;
  }
  if (length_ != 0) std::memcpy(block, text_, length_);
  if (capacity_ != 0) freeBlock();
  text_ = block;
  capacity_ = static_cast<uint32_t>(wanted);
  return block;
}

// Becomes what `other` is; `other` becomes absent. This string must be absent.
void VondString::take(VondString& other) noexcept {
  text_ = other.text_;
  length_ = other.length_;
  capacity_ = other.capacity_;
  if (text_ == other.inline_) {
    std::memcpy(inline_, other.inline_, length_ + size_t{1});
    text_ = inline_;
  }
  other.text_ = nullptr;
  other.length_ = 0;
  other.capacity_ = 0;
}

void VondString::freeBlock() noexcept { std::free(const_cast<char*>(text_)); }
