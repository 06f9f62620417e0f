#ifndef TEXT_MATCH_H_
#define TEXT_MATCH_H_

#include <cstring>
#include <string_view>

#include "VondString.h"

// The three ways in which the rules compare texts. Which one applies differs from rule to rule, so every
// comparison names its own. An absent field matches nothing; no wanted text is empty but for an extension.
// Bytes, no locale; case means ASCII letters.
// Lengths are compared first: that alone settles most look-ups in the tables.

inline bool equals(const VondString& text, std::string_view wanted) {
  return text.length() == wanted.size() && std::memcmp(text.c_str(), wanted.data(), wanted.size()) == 0;
}

// Over the length of `prefix`: "video/3gpp2" begins with "video/3gpp".
inline bool beginsWith(const VondString& text, std::string_view prefix) {
  return text.length() >= prefix.size() && *text.c_str() == prefix.front() &&
         std::memcmp(text.c_str(), prefix.data(), prefix.size()) == 0;
}

inline bool equalsIgnoringCase(const char* text, std::string_view wanted) {
  if (text == nullptr) return false;
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  for (const char c : wanted) {
    if (*text == '\0' || lower(*text++) != lower(c)) return false;
  }
  return *text == '\0';
}

#endif  // TEXT_MATCH_H_
