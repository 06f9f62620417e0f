#include "VondResolution.h"

#include <cstdint>
#include <limits>
#include <new>

#include "AsciiText.h"

namespace {

constexpr uint64_t kMaxInt = std::numeric_limits<int32_t>::max();

// Reads digits at `*text` and moves it behind them. False: none there, or more than a signed 32-bit integer
// holds.
bool readNumber(const char** text, int* number) {
  const char* begin = *text;
  uint64_t value = 0;
  for (; isDigit(**text) && value <= kMaxInt; ++*text)
    value = 10 * value + static_cast<uint64_t>(**text - '0');
  *number = static_cast<int>(value);
  return *text != begin && value <= kMaxInt;
}

}  // namespace

VondResolution* VondResolution::Parse(const char* text, int separator) noexcept {
  if (text == nullptr) return nullptr;
  int width = 0;
  int height = 0;
  const bool parsed = readNumber(&text, &width) && *text == static_cast<char>(separator) &&
                      readNumber(&++text, &height) && *text == '\0';
  return new (std::nothrow) VondResolution(parsed ? 0 : -1, parsed ? width : 0, parsed ? height : 0);
}

VondResolution::VondResolution(int status, int width, int height) noexcept
    : status_(status), width_(width), height_(height) {}

VondResolution::~VondResolution() = default;

int VondResolution::GetStatus() const noexcept { return status_; }
int VondResolution::GetWidth() const noexcept { return width_; }
int VondResolution::GetHeight() const noexcept { return height_; }
