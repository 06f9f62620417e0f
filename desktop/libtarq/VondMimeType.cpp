#include "VondMimeType.h"

#include <array>

#include "AsciiText.h"

namespace {

// The characters of a token.
// Source: RFC 7230 3.2.6.
constexpr auto kIsTokenChar = [] {
  std::array<bool, 256> table{};
  for (size_t c = 0; c < 128; ++c) table[c] = isLetter(static_cast<char>(c)) || isDigit(static_cast<char>(c));
  for (const char c : std::string_view("!#$%&'*+-.^_`|~")) table[static_cast<unsigned char>(c)] = true;
  return table;
}();

std::string_view tokenAt(const char* string) {
  const char* end = string;
  while (kIsTokenChar[static_cast<unsigned char>(*end)]) ++end;
  return {string, end};
}

// No token has a NUL, so the comparison ends with a shorter string.
// Returns: what follows `token` at the beginning of `string`.
// Null: returned when `string` does not begin with `token`.
const char* afterToken(const char* string, std::string_view token) {
  for (const char c : token)
    if (*string++ != c && toLower(string[-1]) != toLower(c)) return nullptr;
  return string;
}

// Returns: whether only parameters can follow.
bool endsType(const char* string) {
  string = skipBlanks(string);
  return *string == '\0' || *string == ';';
}

}  // namespace

VondMimeType::VondMimeType(const char* string) noexcept {
  if (string == nullptr) return;
  const std::string_view type = tokenAt(skipBlanks(string));
  const char* slash = type.data() + type.size();
  if (type.empty() || *slash != '/') return;
  const std::string_view subtype = tokenAt(slash + 1);
  if (subtype.empty() || !endsType(subtype.data() + subtype.size())) return;
  type_ = type;
  subtype_ = subtype;
}

bool VondMimeType::Match(const char* pattern) const noexcept {
  if (!IsValid() || pattern == nullptr) return false;
  const char* rest = afterToken(pattern, type_);
  if (rest == nullptr || *rest++ != '/') return false;
  if (*rest == '*' && endsType(rest + 1)) return true;
  rest = afterToken(rest, subtype_);
  return rest != nullptr && endsType(rest);
}
