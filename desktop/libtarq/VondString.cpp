#include "VondString.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

VondString::VondString() noexcept = default;

VondString::VondString(const char* text) noexcept {
  if (text != nullptr) set(text, std::strlen(text));
}

VondString::VondString(const char* text, size_t length) noexcept {
  if (text != nullptr) set(text, length);
}

VondString::VondString(const VondString& other) noexcept {
  if (other.text_ != nullptr) set(other.text_, other.length_);
}

VondString::VondString(VondString&& other) noexcept { take(other); }

VondString::~VondString() { release(); }

VondString& VondString::operator=(const char* text) noexcept {
  if (text == nullptr) {
    release();
  } else {
    set(text, std::strlen(text));
  }
  return *this;
}

VondString& VondString::operator=(const VondString& other) noexcept {
  if (this == &other) return *this;
  if (other.text_ == nullptr) {
    release();
  } else {
    set(other.text_, other.length_);
  }
  return *this;
}

VondString& VondString::operator=(VondString&& other) noexcept {
  if (this != &other) {
    release();
    take(other);
  }
  return *this;
}

VondString& VondString::append(const char* text) noexcept {
  if (text == nullptr) return *this;
  const size_t added = std::strlen(text);
  const size_t before = length_;
  if (!reserve(before + added)) return *this;
  std::memcpy(text_ + before, text, added + 1);
  length_ = static_cast<uint32_t>(before + added);
  return *this;
}

bool VondString::onHeap() const noexcept { return text_ != nullptr && text_ != inline_; }

const char* VondString::c_str() const noexcept { return text_; }
size_t VondString::length() const noexcept { return length_; }

bool operator==(const VondString& a, const VondString& b) noexcept {
  if (a.text_ == nullptr || b.text_ == nullptr) return a.text_ == b.text_;
  return a.length_ == b.length_ && std::memcmp(a.text_, b.text_, a.length_) == 0;
}

// `text` may be a part of this string: such a part always fits where it is, so nothing is released under it.
void VondString::set(const char* text, size_t length) noexcept {
  if (!reserve(length)) return;
  std::memmove(text_, text, length);
  text_[length] = '\0';
  length_ = static_cast<uint32_t>(length);
}

// Makes room for `length` bytes and a NUL, keeping what is there. False: no memory, the string is absent.
bool VondString::reserve(size_t length) noexcept {
  if (text_ == nullptr) text_ = inline_;
  const uint32_t room = onHeap() ? capacity_ : kInlineBytes;
  if (length < room) return true;

  // At least twice the room, so that building a long text piece by piece costs linear time.
  constexpr size_t kMaxRoom = std::numeric_limits<uint32_t>::max();
  const size_t wanted = std::min(std::max(length + 1, onHeap() ? size_t{2} * room : 0), kMaxRoom);
  char* block = length < kMaxRoom ? static_cast<char*>(std::malloc(wanted)) : nullptr;
  if (block == nullptr) {
    release();
    return false;
  }
  std::memcpy(block, text_, length_);
  char* before = onHeap() ? text_ : nullptr;
  text_ = block;
  capacity_ = static_cast<uint32_t>(wanted);
  std::free(before);
  return true;
}

// Becomes what `other` is; `other` becomes absent. This string must be absent.
void VondString::take(VondString& other) noexcept {
  if (other.text_ == nullptr) return;
  length_ = other.length_;
  if (other.onHeap()) {
    text_ = other.text_;
    capacity_ = other.capacity_;
  } else {
    text_ = inline_;
    std::memcpy(inline_, other.inline_, other.length_ + size_t{1});
  }
  other.text_ = nullptr;
  other.length_ = 0;
}

// Becomes absent.
void VondString::release() noexcept {
  if (onHeap()) std::free(text_);
  text_ = nullptr;
  length_ = 0;
}
