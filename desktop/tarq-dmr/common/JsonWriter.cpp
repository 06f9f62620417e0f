#include "JsonWriter.h"

#include <algorithm>

#include "Utf8.h"

namespace {

bool needsNoEscape(std::string_view string) {
  return std::ranges::all_of(string, [](char c) { return c >= 0x20 && c < 0x7F && c != '"' && c != '\\'; });
}

std::string escaped(uint32_t control) {
  constexpr std::string_view kControls = "\b\f\n\r\t";
  const size_t known = control < 0x20 ? kControls.find(static_cast<char>(control)) : kControls.npos;
  if (known != kControls.npos) return {'\\', "bfnrt"[known]};
  return unicodeEscape(control, "0123456789ABCDEF");
}

}  // namespace

void JsonWriter::write(std::string_view bytes) {
  constexpr size_t kBlockBytes = size_t{64} << 10;
  json_ += bytes;
  if (stream_ != nullptr && json_.size() >= kBlockBytes) flush();
}

void JsonWriter::flush() {
  std::fwrite(json_.data(), 1, json_.size(), stream_);
  json_.clear();
}

void JsonWriter::endLine() {
  write("\n");
  flush();
}

void JsonWriter::writeEscaped(std::string_view string) {
  using Kind = Utf8Piece::Kind;
  while (!string.empty()) {
    const Utf8Piece piece = takePiece(string);
    if (piece.kind == Kind::kControl) write(escaped(piece.codePoint));
    if (piece.kind == Kind::kInvalid) write("\uFFFD");
    if (piece.kind != Kind::kHarmless) continue;
    std::string_view rest = piece.bytes;
    for (size_t at; (at = rest.find_first_of("\"\\")) != rest.npos; rest.remove_prefix(at + 1)) {
      write(rest.substr(0, at));
      write(rest[at] == '"' ? "\\\"" : "\\\\");
    }
    write(rest);
  }
}

void JsonWriter::open(char bracket) {
  beginValue();
  write({&bracket, 1});
  afterValue_ = false;
}

void JsonWriter::close(char bracket) {
  write({&bracket, 1});
  afterValue_ = true;
}

void JsonWriter::beginValue() {
  if (afterValue_) write(",");
  afterValue_ = true;
}

void JsonWriter::key(std::string_view name) {
  beginValue();
  write("\"");
  write(name);
  write("\":");
  afterValue_ = false;
}

void JsonWriter::value(const char* string) {
  beginValue();
  if (string == nullptr) return write("null");
  write("\"");
  needsNoEscape(string) ? write(string) : writeEscaped(string);  // nearly all need none
  write("\"");
}

void JsonWriter::value(int number) { value(int64_t{number}); }

void JsonWriter::value(int64_t number) {
  beginValue();
  write(std::to_string(number));
}

void JsonWriter::value(bool flag) {
  beginValue();
  write(flag ? "true" : "false");
}

void JsonWriter::json(std::string_view value) {
  beginValue();
  write(value);
}
