#include "Utf8.h"

namespace {

// Bytes of the character at the start of `text`, which is not empty; 0: not a valid character.
size_t characterLength(std::string_view text) {
  const auto byte = [&](size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
  const auto continues = [&](size_t i) { return (byte(i) & 0xC0u) == 0x80u; };
  const unsigned lead = byte(0);
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || lead > 0xF4 || !continues(1)) return 0;
  if (lead < 0xE0) return 2;
  if (!continues(2)) return 0;
  const unsigned second = byte(1);
  if (lead < 0xF0) return (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ? 0 : 3;
  if ((lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F)) return 0;
  return continues(3) ? 4 : 0;
}

// Bytes before the first one above 0x7F, usually all. Blocks of a fixed size become vector code.
size_t asciiLength(std::string_view text) {
  constexpr size_t kBlock = 64;
  const auto isAsciiBlock = [&](size_t begin) {
    unsigned char bits = 0;
    for (size_t i = begin; i < begin + kBlock; ++i) bits |= static_cast<unsigned char>(text[i]);
    return bits < 0x80;
  };
  size_t length = 0;
  while (text.size() - length >= kBlock && isAsciiBlock(length)) length += kBlock;
  while (length < text.size() && static_cast<unsigned char>(text[length]) < 0x80) ++length;
  return length;
}

}  // namespace

bool isValidUtf8(std::string_view text) {
  for (;;) {
    text.remove_prefix(asciiLength(text));
    if (text.empty()) return true;
    const size_t length = characterLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
}

std::string repairUtf8(std::string_view text) {
  std::string repaired;
  while (!text.empty()) {
    const size_t length = characterLength(text);
    repaired += length == 0 ? std::string_view("\uFFFD") : text.substr(0, length);
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return repaired;
}
