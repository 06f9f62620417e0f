#ifndef VOND_STRING_H_
#define VOND_STRING_H_

#include <cstddef>
#include <cstdlib>
#include <cstring>

#include "TarqHostApi.h"

// The host's string value: absent, or a string, which may be empty.
// Null: assigning null makes it absent, appending null does nothing; an absent one hands out null.
// Ownership: its characters; `c_str()` is valid until the next change or the destruction.
// Threads: const operations may run at once on any threads.
// Errors: on allocation failure the string becomes absent.
class TARQ_HOST_API VondString {
 public:
  VondString() noexcept = default;                         // absent
  VondString(const char* string) noexcept;                 // null: absent
  VondString(const char* string, size_t length) noexcept;  // the first `length` bytes; null: absent
  VondString(const VondString& other) noexcept;
  VondString(VondString&& other) noexcept;  // `other` becomes absent
  ~VondString() { release(); }

  // `string` may point into this string.
  VondString& operator=(const char* string) noexcept {
    string == nullptr ? release() : assign(string, std::strlen(string));
    return *this;
  }
  VondString& operator=(const VondString& other) noexcept;
  VondString& operator=(VondString&& other) noexcept;

  // Adds `string`, which may not point into this one, at the end. An absent string becomes it.
  VondString& append(const char* string) noexcept;

  const char* c_str() const noexcept { return data_; }
  size_t length() const noexcept { return length_; }  // bytes; 0 when absent

  // Equal when both are absent or both hold the same bytes; absent and empty differ.
  friend bool operator==(const VondString& a, const VondString& b) noexcept {
    if (a.length_ != b.length_) return false;
    if (a.data_ == nullptr || b.data_ == nullptr) return a.data_ == b.data_;
    return std::memcmp(a.data_, b.data_, a.length_) == 0;
  }

 private:
  static constexpr size_t kInlineBytes = 24;  // profile names, MIME types and extensions fit

  size_t room() const noexcept { return capacity_ != 0 ? capacity_ : kInlineBytes; }  // bytes, with the NUL
  void assign(const char* string, size_t length) noexcept;
  char* reserve(size_t length) noexcept;
  char* grow(size_t length) noexcept;
  void take(VondString& other) noexcept;
  void release() noexcept {  // becomes absent
    if (capacity_ != 0) std::free(data_);
    data_ = nullptr;
    length_ = 0;
    capacity_ = 0;
  }

  char* data_ = nullptr;  // null: absent; else `inline_` or a heap block of `capacity_` bytes
  size_t length_ = 0;
  size_t capacity_ = 0;  // 0 while the heap is not used
  char inline_[kInlineBytes];
};

#endif  // VOND_STRING_H_
