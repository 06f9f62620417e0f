#include "VondResolution.h"

#include <cstdint>
#include <limits>
#include <new>

#include "AsciiText.h"

namespace {

constexpr uint64_t kMaxInt = std::numeric_limits<int32_t>::max();

// Reads the digits at the beginning of `string`.
// Returns: what follows them.
// Null: returned when there are no digits, or when the number does not fit a signed 32-bit integer.
const char* readNumber(const char* string, int& number) {
  const char* end = string;
  uint64_t value = 0;
  for (; isDigit(*end) && value <= kMaxInt; ++end) value = 10 * value + static_cast<uint64_t>(*end - '0');
  number = static_cast<int>(value);
  return end != string && value <= kMaxInt ? end : nullptr;
}

}  // namespace

VondResolution* VondResolution::Parse(const char* string, int separator) noexcept {
  if (string == nullptr) return nullptr;
  int width = 0;
  int height = 0;
  const char* afterWidth = readNumber(string, width);
  const bool separated = afterWidth != nullptr && *afterWidth == static_cast<char>(separator);
  const char* afterHeight = separated ? readNumber(afterWidth + 1, height) : nullptr;
  const bool parsed = afterHeight != nullptr && *afterHeight == '\0';
  return new (std::nothrow) VondResolution(parsed ? 0 : -1, parsed ? width : 0, parsed ? height : 0);
}

VondResolution::VondResolution(int status, int width, int height) noexcept
    : status_(status), width_(width), height_(height) {}

VondResolution::~VondResolution() = default;
