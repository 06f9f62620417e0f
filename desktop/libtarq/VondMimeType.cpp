#include "VondMimeType.h"

#include <array>

#include "AsciiText.h"

namespace {

// The characters of a token: RFC 7230 3.2.6.
constexpr auto kIsTokenChar = [] {
  std::array<bool, 256> table{};
  for (size_t c = 0; c < 128; ++c) table[c] = isLetter(static_cast<char>(c)) || isDigit(static_cast<char>(c));
  for (const char c : std::string_view("!#$%&'*+-.^_`|~")) table[static_cast<unsigned char>(c)] = true;
  return table;
}();

std::string_view tokenAt(const char* text) {
  const char* end = text;
  while (kIsTokenChar[static_cast<unsigned char>(*end)]) ++end;
  return {text, static_cast<size_t>(end - text)};
}

// Where `text` goes on behind `token`; null when it does not begin with it. No token holds a NUL, so a
// shorter text differs.
const char* behindToken(const char* text, std::string_view token) {
  for (const char c : token)
    if (const char other = *text++; other != c && toLower(other) != toLower(c)) return nullptr;
  return text;
}

// True where nothing but parameters can follow.
bool endsType(const char* text) {
  text = skipBlanks(text);
  return *text == '\0' || *text == ';';
}

}  // namespace

VondMimeType::VondMimeType(const char* text) noexcept {
  if (text == nullptr) return;
  const std::string_view type = tokenAt(skipBlanks(text));
  const char* slash = type.data() + type.size();
  if (type.empty() || *slash != '/') return;
  const std::string_view subtype = tokenAt(slash + 1);
  if (subtype.empty() || !endsType(subtype.data() + subtype.size())) return;
  type_ = type;
  subtype_ = subtype;
}

bool VondMimeType::matchWhole(const char* pattern) const noexcept {
  const char* rest = behindToken(pattern, type_);
  if (rest == nullptr || *rest++ != '/') return false;
  if (*rest == '*' && endsType(rest + 1)) return true;
  rest = behindToken(rest, subtype_);
  return rest != nullptr && endsType(rest);
}
