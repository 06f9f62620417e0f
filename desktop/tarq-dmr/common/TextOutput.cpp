#include "TextOutput.h"

#include <cstdio>

std::string printable(std::string_view text) {
  constexpr char kHexDigits[] = "0123456789abcdef";
  std::string shown;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte != 0x7F) {
      shown += c;
    } else {
      shown += {'\\', 'x', kHexDigits[byte >> 4], kHexDigits[byte & 0xF]};
    }
  }
  return shown;
}

void printRow(std::string_view label, int labelWidth, const char* value) {
  std::string shown = "-";
  if (value != nullptr) shown = *value == '\0' ? "\"\"" : printable(value);
  std::printf("  %-*.*s  %s\n", labelWidth, static_cast<int>(label.size()), label.data(), shown.c_str());
}

void printResource(const TarqResourceInfo& resource) {
  constexpr int kLabelWidth = 15;
  const auto row = [](std::string_view label, const char* value) { printRow(label, kLabelWidth, value); };
  row("uri", resource.uri);
  row("MIME type", resource.mimeType);
  row("additional info", resource.additionalInfo);
  row("res index", std::to_string(resource.resIndex).c_str());
  row("size", resource.size);
  row("duration", resource.duration);
  row("operation", resource.operation);
  row("format", resource.contentFormat == nullptr ? nullptr : resource.contentFormat->c_str());
}
