#include "VondResolution.h"

#include <cstdint>
#include <limits>
#include <new>

#include "AsciiText.h"

namespace {

constexpr uint64_t kMaxInt = std::numeric_limits<int32_t>::max();

// Reads the digits at `text`; where the text goes on. Null: no digits, or more than a signed 32-bit integer
// holds.
const char* readNumber(const char* text, int& number) {
  const char* end = text;
  uint64_t value = 0;
  for (; isDigit(*end) && value <= kMaxInt; ++end) value = 10 * value + static_cast<uint64_t>(*end - '0');
  number = static_cast<int>(value);
  return end != text && value <= kMaxInt ? end : nullptr;
}

}  // namespace

VondResolution* VondResolution::Parse(const char* text, int separator) noexcept {
  if (text == nullptr) return nullptr;
  int width = 0;
  int height = 0;
  const char* behindWidth = readNumber(text, width);
  const bool separated = behindWidth != nullptr && *behindWidth == static_cast<char>(separator);
  const char* behindHeight = separated ? readNumber(behindWidth + 1, height) : nullptr;
  const bool parsed = behindHeight != nullptr && *behindHeight == '\0';
  return new (std::nothrow) VondResolution(parsed ? 0 : -1, parsed ? width : 0, parsed ? height : 0);
}

VondResolution::VondResolution(int status, int width, int height) noexcept
    : status_(status), width_(width), height_(height) {}

VondResolution::~VondResolution() = default;
