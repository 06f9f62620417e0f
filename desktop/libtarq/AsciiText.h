#ifndef TARQ_ASCII_TEXT_H_
#define TARQ_ASCII_TEXT_H_

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string_view>

// What the parsers share. ASCII only: a byte above 127 is never blank, a letter or a digit in any locale.

// Hardly any character is at or below the blank, so one comparison is usually enough.
constexpr bool isBlank(char c) {
  return static_cast<unsigned char>(c) <= ' ' && (c == ' ' || c == '\t' || c == '\r' || c == '\n');
}
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr char toLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

inline const char* skipBlanks(const char* string) {
  while (isBlank(*string)) ++string;
  return string;
}

constexpr std::string_view trim(std::string_view string) {
  while (!string.empty() && isBlank(string.front())) string.remove_prefix(1);
  while (!string.empty() && isBlank(string.back())) string.remove_suffix(1);
  return string;
}

constexpr bool startsWithIgnoringCase(std::string_view string, std::string_view start) {
  if (string.size() < start.size()) return false;
  for (size_t i = 0; i < start.size(); ++i)
    if (toLower(string[i]) != toLower(start[i])) return false;
  return true;
}

constexpr bool equalIgnoringCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && startsWithIgnoringCase(a, b);
}

// Room for `count` elements: `inlineRoom` if it is large enough, otherwise a heap block.
// Null: returned on allocation failure.
// Ownership: the caller frees a heap block with `free`.
template <class T, size_t N>
T* allocate(size_t count, T (&inlineRoom)[N]) {
  return count <= N ? inlineRoom : static_cast<T*>(std::malloc(count * sizeof(T)));
}

#endif  // TARQ_ASCII_TEXT_H_
