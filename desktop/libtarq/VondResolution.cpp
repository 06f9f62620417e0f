#include "VondResolution.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <new>
#include <string_view>

namespace {

// Reads digits at `*text` and moves it behind them. False: none there, or more than a signed 32-bit integer
// holds.
bool readNumber(const char** text, const char* end, int* number) {
  uint32_t value = 0;  // unsigned: no sign is accepted
  const auto [next, error] = std::from_chars(*text, end, value);
  if (error != std::errc() || value > static_cast<uint32_t>(std::numeric_limits<int32_t>::max()))
    return false;
  *text = next;
  *number = static_cast<int>(value);
  return true;
}

}  // namespace

VondResolution* VondResolution::Parse(const char* text, int separator) noexcept {
  if (text == nullptr) return nullptr;
  const char* end = text + std::string_view(text).size();
  int width = 0;
  int height = 0;
  const bool parsed = readNumber(&text, end, &width) && *text == static_cast<char>(separator) &&
                      readNumber(&++text, end, &height) && text == end;
  return new (std::nothrow) VondResolution(parsed ? 0 : -1, parsed ? width : 0, parsed ? height : 0);
}

VondResolution::VondResolution(int status, int width, int height) noexcept
    : status_(status), width_(width), height_(height) {}

VondResolution::~VondResolution() = default;

int VondResolution::GetStatus() const noexcept { return status_; }
int VondResolution::GetWidth() const noexcept { return width_; }
int VondResolution::GetHeight() const noexcept { return height_; }
