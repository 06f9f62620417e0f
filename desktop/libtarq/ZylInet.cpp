#include "ZylInet.h"

#include <arpa/inet.h>

#include "AsciiText.h"

namespace {

// Reads one part at `*text` and moves it behind the part; -1: not 0 to 255, or with leading zeros.
int readPart(const char** text) {
  const char* first = *text;
  int value = 0;
  for (; isDigit(**text) && value <= 255; ++*text) value = 10 * value + (**text - '0');
  const auto digits = *text - first;
  const bool leadingZero = digits > 1 && *first == '0';
  return digits > 0 && value <= 255 && !leadingZero ? value : -1;
}

}  // namespace

int ZylInetAToN(const char* text, uint32_t* address) noexcept {
  if (text == nullptr) return -1;
  uint32_t value = 0;
  for (int n = 0; n < 4; ++n) {
    if (n > 0 && *text++ != '.') return -1;
    const int part = readPart(&text);
    if (part < 0) return -1;
    value = (value << 8) | static_cast<uint32_t>(part);
  }
  if (*text != '\0') return -1;
  if (address != nullptr) *address = htonl(value);
  return 0;
}
