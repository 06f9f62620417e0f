#ifndef UTF8_DECODER_H_
#define UTF8_DECODER_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

struct Utf8Character {
  // U+FFFD when not valid.
  uint32_t codePoint;
  // Bytes, at least 1. When not valid: as many as could have begun a valid character.
  size_t length;
  bool valid;
};

// Decodes the character at the beginning of `string`, which must not be empty. Overlong forms, surrogates and
// anything above U+10FFFF are not valid.
// Threads: any, also several at once.
// Source: RFC 3629; WHATWG Encoding Standard (the length of what is not valid).
constexpr Utf8Character decodeUtf8(std::string_view string) {
  constexpr uint32_t kReplacement = 0xFFFD;
  const unsigned lead = static_cast<unsigned char>(string.front());
  if (lead < 0x80) return {lead, 1, true};
  if (lead < 0xC2 || lead > 0xF4) return {kReplacement, 1, false};
  const size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  // The range of the second byte excludes overlong forms, surrogates and what is above U+10FFFF.
  unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  uint32_t codePoint = lead & (0x7Fu >> length);
  for (size_t i = 1; i < length; ++i) {
    const unsigned byte = i < string.size() ? static_cast<unsigned char>(string[i]) : 0;
    if (byte < low || byte > high) return {kReplacement, i, false};
    codePoint = codePoint << 6 | (byte & 0x3F);
    low = 0x80;
    high = 0xBF;
  }
  return {codePoint, length, true};
}

#endif  // UTF8_DECODER_H_
