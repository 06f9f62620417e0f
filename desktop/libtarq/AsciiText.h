#ifndef TARQ_ASCII_TEXT_H_
#define TARQ_ASCII_TEXT_H_

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string_view>

// What the parsers share. ASCII only: a byte above 127 is never blank, a letter or a digit, whatever the
// locale.

// One comparison decides for nearly every character.
constexpr bool isBlank(char c) {
  return static_cast<unsigned char>(c) <= ' ' && (c == ' ' || c == '\t' || c == '\r' || c == '\n');
}
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr char toLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

inline const char* skipBlanks(const char* text) {
  while (isBlank(*text)) ++text;
  return text;
}

constexpr std::string_view trim(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

constexpr bool startsWithIgnoringCase(std::string_view text, std::string_view start) {
  if (text.size() < start.size()) return false;
  for (size_t i = 0; i < start.size(); ++i)
    if (toLower(text[i]) != toLower(start[i])) return false;
  return true;
}

constexpr bool equalIgnoringCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && startsWithIgnoringCase(a, b);
}

// Element names are so short that looking at them here beats a call.
constexpr bool sameName(const char* a, const char* b) {
  for (; *a == *b; ++a, ++b)
    if (*a == '\0') return true;
  return false;
}

// A copy of the first `length` bytes of `text` with a NUL behind them: in `inlineBuffer` where it fits, else
// in a block that the caller frees. Null: no memory.
template <size_t N>
char* copyText(const char* text, size_t length, char (&inlineBuffer)[N]) {
  char* copy = length < N ? inlineBuffer : static_cast<char*>(std::malloc(length + 1));
  if (copy == nullptr) return nullptr;
  std::memcpy(copy, text, length);
  copy[length] = '\0';
  return copy;
}

#endif  // TARQ_ASCII_TEXT_H_
