#include "Utf8.h"

#include "Utf8Decoder.h"

namespace {

// Bytes before the first one above 0x7F, usually all of them. The compiler turns blocks of a fixed size into
// vector code.
size_t asciiLength(std::string_view string) {
  constexpr size_t kBlock = 64;
  const auto isAsciiBlock = [&](size_t begin) {
    unsigned char bits = 0;
    for (size_t i = begin; i < begin + kBlock; ++i) bits |= static_cast<unsigned char>(string[i]);
    return bits < 0x80;
  };
  size_t length = 0;
  while (string.size() - length >= kBlock && isAsciiBlock(length)) length += kBlock;
  while (length < string.size() && static_cast<unsigned char>(string[length]) < 0x80) ++length;
  return length;
}

// C0, DEL and C1; marks of direction, the ends of lines and paragraphs.
constexpr bool isControl(uint32_t codePoint) {
  return codePoint < 0x20 || (codePoint >= 0x7F && codePoint <= 0x9F) || codePoint == 0x061C ||
         codePoint == 0x200E || codePoint == 0x200F || (codePoint >= 0x2028 && codePoint <= 0x202E) ||
         (codePoint >= 0x2066 && codePoint <= 0x2069);
}

bool isHarmless(const Utf8Character& character) { return character.valid && !isControl(character.codePoint); }

}  // namespace

bool isValidUtf8(std::string_view string) {
  for (;;) {
    string.remove_prefix(asciiLength(string));
    if (string.empty()) return true;
    const Utf8Character character = decodeUtf8(string);
    if (!character.valid) return false;
    string.remove_prefix(character.length);
  }
}

Utf8Piece takePiece(std::string_view& string) {
  using Kind = Utf8Piece::Kind;
  Utf8Character next = decodeUtf8(string);
  size_t length = 0;
  while (length < string.size() && isHarmless(next)) {
    length += next.length;
    if (length < string.size()) next = decodeUtf8(string.substr(length));
  }
  const Kind kind = length > 0 ? Kind::kHarmless : next.valid ? Kind::kControl : Kind::kInvalid;
  if (kind != Kind::kHarmless) length = next.valid ? next.length : 1;
  const Utf8Piece piece{kind, string.substr(0, length), next.codePoint};
  string.remove_prefix(length);
  return piece;
}

std::string unicodeEscape(uint32_t codePoint, const char* hexDigits) {
  const auto digit = [&](int shift) { return hexDigits[codePoint >> shift & 0xF]; };
  return {'\\', 'u', digit(12), digit(8), digit(4), digit(0)};
}
