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

std::string repairUtf8(std::string_view string) {
  std::string repaired;
  while (!string.empty()) {
    const Utf8Character character = decodeUtf8(string);
    const size_t length = character.valid ? character.length : 1;
    repaired += character.valid ? string.substr(0, length) : std::string_view("\uFFFD");
    string.remove_prefix(length);
  }
  return repaired;
}
