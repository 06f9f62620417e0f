#ifndef VOND_STRING_H_
#define VOND_STRING_H_

#include <cstddef>
#include <cstdint>

#include "TarqHostApi.h"

// The host's text value: absent, or a text, which may be empty.
// Threads: const operations may run at once on any threads.
// Owns: its characters. `c_str()` is valid until the next change or the destruction.
// Null: assigning or appending null: see each operation. An absent string hands out a null pointer.
// Memory: where none can be had, the string becomes absent.
class TARQ_HOST_API VondString {
 public:
  VondString() noexcept;                                 // absent
  VondString(const char* text) noexcept;                 // null: absent
  VondString(const char* text, size_t length) noexcept;  // the first `length` bytes; null: absent
  VondString(const VondString& other) noexcept;
  VondString(VondString&& other) noexcept;  // `other` becomes absent
  ~VondString();

  VondString& operator=(const char* text) noexcept;  // null: absent; may point into this string
  VondString& operator=(const VondString& other) noexcept;
  VondString& operator=(VondString&& other) noexcept;

  // Adds `text` at the end; an absent string becomes it. Null: nothing. May not point into this string.
  VondString& append(const char* text) noexcept;

  const char* c_str() const noexcept;  // null when absent
  size_t length() const noexcept;      // bytes; 0 when absent

  // Equal when both are absent or both hold the same bytes; absent and empty differ.
  friend TARQ_HOST_API bool operator==(const VondString& a, const VondString& b) noexcept;

 private:
  static constexpr uint32_t kInlineBytes = 24;

  void set(const char* text, size_t length) noexcept;
  bool reserve(size_t length) noexcept;
  void take(VondString& other) noexcept;
  void release() noexcept;
  bool onHeap() const noexcept;

  char* text_ = nullptr;  // null: absent; else `inline_` or a heap block of `capacity_` bytes
  uint32_t length_ = 0;
  uint32_t capacity_ = 0;  // of the heap block, while there is one
  char inline_[kInlineBytes];
};

#endif  // VOND_STRING_H_
