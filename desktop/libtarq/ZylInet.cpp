#include "ZylInet.h"

#include <arpa/inet.h>

#include "AsciiText.h"

namespace {

// Reads one part at `*string` and moves `*string` past it.
// Returns: 0 to 255; -1 for anything else and for a part with leading zeros.
int readPart(const char** string) {
  const char* first = *string;
  int value = 0;
  for (; isDigit(**string) && value <= 255; ++*string) value = 10 * value + (**string - '0');
  const auto digits = *string - first;
  const bool leadingZero = digits > 1 && *first == '0';
  return digits > 0 && value <= 255 && !leadingZero ? value : -1;
}

}  // namespace

int ZylInetAToN(const char* string, uint32_t* address) noexcept {
  if (string == nullptr) return -1;
  uint32_t value = 0;
  for (int n = 0; n < 4; ++n) {
    if (n > 0 && *string++ != '.') return -1;
    const int part = readPart(&string);
    if (part < 0) return -1;
    value = (value << 8) | static_cast<uint32_t>(part);
  }
  if (*string != '\0') return -1;
  if (address != nullptr) *address = htonl(value);
  return 0;
}
