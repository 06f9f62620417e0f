#ifndef FUZZ_INPUT_H_
#define FUZZ_INPUT_H_

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

// Ends the process unless the property holds; the fuzzer then keeps the input that broke it.
inline void require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "BROKEN PROPERTY: %s\n", property);
  std::abort();
}

// A C string, up to its first NUL, in a heap block of exactly its size: the address sanitizer detects reading
// past its end.
class CString {
 public:
  explicit CString(std::string_view string)
      : length_(string.substr(0, string.find('\0')).size()), bytes_(new char[length_ + 1]) {
    std::memcpy(bytes_.get(), string.data(), length_);
    bytes_[length_] = '\0';
  }

  const char* c_str() const { return bytes_.get(); }
  std::string_view view() const { return {bytes_.get(), length_}; }

 private:
  size_t length_;
  std::unique_ptr<char[]> bytes_;
};

// What the fuzzer made up: some lines, then the rest, so that inputs are readable. A missing line is empty.
class FuzzInput {
 public:
  FuzzInput(const uint8_t* data, size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

  std::string_view line() {
    const size_t end = std::min(rest_.find('\n'), rest_.size());
    const std::string_view first = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return first;
  }
  // Any line is some number.
  int32_t number() {
    return static_cast<int32_t>(static_cast<uint32_t>(std::strtoll(CString(line()).c_str(), nullptr, 10)));
  }
  std::string_view rest() const { return rest_; }

 private:
  std::string_view rest_;
};

// The same with the other case of every ASCII letter.
inline std::string otherCase(std::string_view string) {
  std::string other(string);
  for (char& c : other)
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) c = static_cast<char>(c ^ ('a' ^ 'A'));
  return other;
}

// An absent string is not the empty string.
inline bool sameString(const char* a, const char* b) {
  return a == nullptr || b == nullptr ? a == b : std::strcmp(a, b) == 0;
}

#endif  // FUZZ_INPUT_H_
