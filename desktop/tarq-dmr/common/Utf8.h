#ifndef TARQ_DMR_UTF8_H_
#define TARQ_DMR_UTF8_H_

#include <cstdint>
#include <string>
#include <string_view>

// Returns: whether `text` is UTF-8 without overlong forms, surrogates and anything above U+10FFFF.
// Source: RFC 3629.
bool isValidUtf8(std::string_view string);

// A part of a string that came from outside. What is not harmless could move the cursor of a terminal, forge
// a line or show other text than there is, and reaches neither text nor log nor JSON as it is.
struct Utf8Piece {
  // As many harmless characters as follow each other, one control character, or one byte that is not part of
  // a valid character.
  enum class Kind { kHarmless, kControl, kInvalid };

  Kind kind;
  std::string_view bytes;
  uint32_t codePoint;  // of a control character; at most U+FFFF
};

// Takes the first piece off `string`, which must not be empty.
Utf8Piece takePiece(std::string_view& string);

// "\uNNNN", with these sixteen digits, of a code point up to U+FFFF.
std::string unicodeEscape(uint32_t codePoint, const char* hexDigits);

#endif  // TARQ_DMR_UTF8_H_
