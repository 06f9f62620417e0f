#ifndef TEXT_MATCH_H_
#define TEXT_MATCH_H_

#include <string_view>

#include "VondString.h"

// The rules compare strings in three ways: equals, begins with (over the length of the wanted string), and
// equals ignoring the case of ASCII letters. Which one applies differs from rule to rule, so every comparison
// names its own:
// `==`, `starts_with` or `equalsIgnoringCase`. Bytes, no locale.
// Null: an absent string matches nothing; only an extension is ever wanted empty.

inline std::string_view viewOf(const VondString& string) {
  return string.c_str() == nullptr ? std::string_view() : std::string_view(string.c_str());
}

inline bool equalsIgnoringCase(const char* string, std::string_view wanted) {
  if (string == nullptr) return false;
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  for (const char c : wanted) {
    if (*string == '\0' || lower(*string++) != lower(c)) return false;
  }
  return *string == '\0';
}

#endif  // TEXT_MATCH_H_
