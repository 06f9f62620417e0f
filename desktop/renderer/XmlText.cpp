#include "XmlText.h"

#include "Utf8.h"

std::string xmlText(const pugi::xml_document& document) {
  struct StringWriter : pugi::xml_writer {
    std::string text;
    void write(const void* data, size_t size) override { text.append(static_cast<const char*>(data), size); }
  } writer;
  document.save(writer, "", pugi::format_raw | pugi::format_no_declaration);
  return writer.text;
}

std::string allowedInXml(std::string_view string) {
  std::string allowed;
  while (!string.empty()) {
    const Utf8Piece piece = takePiece(string);
    const bool isWhite = piece.codePoint == '\t' || piece.codePoint == '\n' || piece.codePoint == '\r';
    const bool isForbidden = piece.kind == Utf8Piece::Kind::kControl && piece.codePoint < 0x20 && !isWhite;
    const bool isReplaced = isForbidden || piece.kind == Utf8Piece::Kind::kInvalid;
    allowed += isReplaced ? "\uFFFD" : piece.bytes;
  }
  return allowed;
}
