#include "TextOutput.h"

#include <cstdio>

#include "Utf8.h"

namespace {

std::string shownPiece(const Utf8Piece& piece) {
  constexpr const char* kHexDigits = "0123456789abcdef";
  if (piece.kind == Utf8Piece::Kind::kHarmless) return std::string(piece.bytes);
  if (piece.bytes.size() > 1) return unicodeEscape(piece.codePoint, kHexDigits);
  const auto byte = static_cast<unsigned char>(piece.bytes.front());
  return {'\\', 'x', kHexDigits[byte >> 4], kHexDigits[byte & 0xF]};
}

}  // namespace

std::string printable(std::string_view text) {
  std::string all;
  while (!text.empty()) all += shownPiece(takePiece(text));
  return all;
}

void printRow(std::string_view label, int labelWidth, const char* value) {
  std::printf("  %-*.*s  ", labelWidth, static_cast<int>(label.size()), label.data());
  std::string_view rest = value == nullptr ? "-" : *value == '\0' ? "\"\"" : value;
  while (!rest.empty()) std::fputs(shownPiece(takePiece(rest)).c_str(), stdout);  // it may be long
  std::putchar('\n');
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
