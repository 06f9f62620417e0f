#ifndef TEXT_MATCH_H_
#define TEXT_MATCH_H_

#include <cstring>
#include <string_view>

// The three ways in which the rules compare texts. Which one applies differs from rule to rule, so every
// comparison names its own. A null text (an absent field) matches nothing. Bytes, no locale; case means ASCII
// letters.

inline bool equals(const char* text, const char* wanted) {
  return text != nullptr && *text == *wanted && std::strcmp(text, wanted) == 0;
}

// Over the length of `prefix`: "video/3gpp2" begins with "video/3gpp".
inline bool beginsWith(const char* text, std::string_view prefix) {
  return text != nullptr && *text == prefix.front() && std::strncmp(text, prefix.data(), prefix.size()) == 0;
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
