#include "DidlDuration.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace {

constexpr int64_t kNone = -1;

bool take(std::string_view& text, char separator) {
  const bool found = text.starts_with(separator);
  if (found) text.remove_prefix(1);
  return found;
}

// Takes a number of 31 bits from the front, or kNone.
int64_t takeNumber(std::string_view& text) {
  int32_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || text.starts_with('-')) return kNone;
  text.remove_prefix(static_cast<size_t>(stop - text.data()));
  return number;
}

int64_t decimalMs(std::string_view digits) {
  std::string thousandths(digits.substr(0, 3));
  thousandths.resize(3, '0');
  std::string_view rest = thousandths;
  return takeNumber(rest);
}

// What follows the seconds; kNone: not a fraction.
int64_t takeFractionMs(std::string_view text) {
  if (text.empty()) return 0;
  if (!take(text, '.') || text.empty()) return kNone;
  if (text.find_first_not_of("0123456789") == std::string_view::npos) return decimalMs(text);
  const int64_t part = takeNumber(text);
  if (part == kNone || !take(text, '/')) return kNone;
  const int64_t whole = takeNumber(text);
  return text.empty() && part < whole ? part * 1000 / whole : kNone;
}

}  // namespace

std::optional<int> findDurationMs(const char* duration) {
  if (duration == nullptr) return std::nullopt;
  std::string_view rest = duration;
  const int64_t hours = takeNumber(rest);
  if (hours == kNone || !take(rest, ':')) return std::nullopt;
  const int64_t minutes = takeNumber(rest);
  if (minutes == kNone || minutes > 59 || !take(rest, ':')) return std::nullopt;
  const int64_t seconds = takeNumber(rest);
  const int64_t fraction = takeFractionMs(rest);
  if (seconds == kNone || seconds > 59 || fraction == kNone) return std::nullopt;
  const int64_t ms = ((hours * 60 + minutes) * 60 + seconds) * 1000 + fraction;
  return static_cast<int>(std::min<int64_t>(ms, INT32_MAX));
}

std::string durationText(int ms) {
  const int seconds = std::max(ms, 0) / 1000;
  char text[32];
  std::snprintf(text, sizeof text, "%d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
  return text;
}
