#include "Steps.h"

#include <cstring>

#include "TextOutput.h"

std::string shown(const char* string, size_t limitBytes) {
  if (string == nullptr) return "";
  if (*string == '\0') return "\"\"";
  std::string line = printable({string, strnlen(string, limitBytes + 1)});
  if (line.size() <= limitBytes) return line;
  size_t end = limitBytes - 3;
  while (end > 0 && (static_cast<unsigned char>(line[end]) & 0xC0) == 0x80) --end;  // no half characters
  return line.substr(0, end) + "...";
}

std::string resText(int index) { return "res " + std::to_string(index); }

void Steps::begin(const std::string& title) {
  if (step_++ != 0) text_ += "\n";
  text_ += std::to_string(step_) + ". " + title + "\n";
}

void Steps::row(std::string_view label, const std::string& words) {
  constexpr size_t kLabelWidth = 12;
  text_ += "  " + std::string(label) + std::string(kLabelWidth - label.size(), ' ') + words + "\n";
}
