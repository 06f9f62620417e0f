#ifndef VOND_STRING_H_
#define VOND_STRING_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "TarqHostApi.h"

// The host's text value: absent, or a text, which may be empty.
// Threads: const operations may run at once on any threads.
// Owns: its characters, unless it refers to another's. `c_str()` is valid until the next change or the
// destruction. Null: assigning or appending null: see each operation. An absent string hands out a null
// pointer. Memory: where none can be had, the string becomes absent.
class TARQ_HOST_API VondString {
 public:
  VondString() noexcept {}                               // absent
  VondString(const char* text) noexcept;                 // null: absent
  VondString(const char* text, size_t length) noexcept;  // the first `length` bytes; null: absent
  VondString(const VondString& other) noexcept;          // always a copy of its own
  VondString(VondString&& other) noexcept;               // `other` becomes absent
  ~VondString() {
    if (capacity_ != 0) freeBlock();
  }

  VondString& operator=(const char* text) noexcept {  // null: absent; may point into this string
    assign(text, text == nullptr ? 0 : std::strlen(text));
    return *this;
  }
  VondString& operator=(const VondString& other) noexcept;
  VondString& operator=(VondString&& other) noexcept;
  // The first `length` bytes of `text`, which may point into this string; null: absent.
  void assign(const char* text, size_t length) noexcept {
    if (text == nullptr) {
      release();
    } else {
      set(text, length);
    }
  }
  // Becomes `text` without copying it: it must outlive this string, and stay as it is. Null: absent.
  void refer(const char* text) noexcept {
    release();
    text_ = text;
    length_ = text == nullptr ? 0 : static_cast<uint32_t>(std::strlen(text));
  }
  // The same of a text whose length is known; a NUL follows it.
  void refer(std::string_view text) noexcept {
    release();
    text_ = text.data();
    length_ = static_cast<uint32_t>(text.size());
  }

  // Adds `text` at the end; an absent string becomes it. Null: nothing. May not point into this string.
  VondString& append(const char* text) noexcept;

  const char* c_str() const noexcept { return text_; }  // null when absent
  size_t length() const noexcept { return length_; }    // bytes; 0 when absent

  // Equal when both are absent or both hold the same bytes; absent and empty differ.
  friend bool operator==(const VondString& a, const VondString& b) noexcept {
    if (a.length_ != b.length_) return false;
    if (a.length_ == 0) return (a.text_ == nullptr) == (b.text_ == nullptr);
    return std::memcmp(a.text_, b.text_, a.length_) == 0;
  }

 private:
  static constexpr uint32_t kInlineBytes = 24;

  void set(const char* text, size_t length) noexcept;
  char* reserve(size_t length) noexcept;
  void take(VondString& other) noexcept;
  void freeBlock() noexcept;
  void release() noexcept {  // becomes absent
    if (capacity_ != 0) freeBlock();
    text_ = nullptr;
    length_ = 0;
    capacity_ = 0;
  }

  const char* text_ =
      nullptr;  // null: absent; else `inline_`, a heap block of `capacity_` bytes, or another's text
  uint32_t length_ = 0;
  uint32_t capacity_ = 0;  // 0 while the heap is not used
  char inline_[kInlineBytes];
};

#endif  // VOND_STRING_H_
