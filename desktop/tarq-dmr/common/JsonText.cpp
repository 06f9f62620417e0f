#include "JsonText.h"

#include <rapidjson/writer.h>

#include <charconv>

#include "Utf8.h"

namespace {

// ASCII without control characters, quotes and backslashes. Looks at every byte, so that it becomes vector
// code.
bool isPlain(std::string_view text) {
  unsigned char special = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    special |= static_cast<unsigned char>(byte < 0x20 || byte >= 0x80 || byte == '"' || byte == '\\');
  }
  return special == 0;
}

// Where the JSON library writes to.
struct AppendStream {
  using Ch = char;
  void Put(char c) { text += c; }
  void Flush() {}

  std::string& text;
};

void appendEscaped(std::string& to, std::string_view text) {
  AppendStream stream{to};
  rapidjson::Writer<AppendStream> writer(stream);
  writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

}  // namespace

void JsonText::clear() {
  constexpr size_t kKeptBytes = 16384;  // one long text must not hold its memory for ever
  text_.clear();
  if (text_.capacity() > kKeptBytes) text_.shrink_to_fit();
  afterValue_ = false;
}

void JsonText::open(char bracket) {
  separate();
  text_ += bracket;
}

void JsonText::close(char bracket) {
  text_ += bracket;
  afterValue_ = true;
}

void JsonText::separate() {
  if (afterValue_) text_ += ',';
  afterValue_ = false;
}

void JsonText::key(std::string_view name) {
  separate();
  ((text_ += '"') += name) += "\":";
}

void JsonText::value(const char* text) {
  separate();
  afterValue_ = true;
  if (text == nullptr) {
    text_ += "null";
    return;
  }
  // The library goes byte by byte; nearly all texts need no change.
  const std::string_view view(text);
  if (isPlain(view)) {
    ((text_ += '"') += view) += '"';
  } else if (isValidUtf8(view)) {
    appendEscaped(text_, view);
  } else {
    appendEscaped(text_, repairUtf8(view));
  }
}

void JsonText::value(int number) {
  separate();
  char digits[16];
  text_.append(digits, std::to_chars(digits, std::end(digits), number).ptr);
  afterValue_ = true;
}

void JsonText::value(bool flag) {
  separate();
  text_ += flag ? "true" : "false";
  afterValue_ = true;
}

void writeAccepted(JsonText& json, const TarqResourceInfo& resource) {
  const auto field = [&json](std::string_view name, auto value) {
    json.key(name);
    json.value(value);
  };
  json.openObject();
  field("code", 0);
  field("uri", resource.uri);
  field("mimeType", resource.mimeType);
  field("additionalInfo", resource.additionalInfo);
  field("resIndex", resource.resIndex);
  field("size", resource.size);
  field("duration", resource.duration);
  field("reserved", resource.reserved);
  field("operation", resource.operation);
  field("contentFormat", resource.contentFormat == nullptr ? nullptr : resource.contentFormat->c_str());
  json.closeObject();
}

void writeRefused(JsonText& json, int code, const char* message) {
  json.openObject();
  json.key("code");
  json.value(code);
  json.key("message");
  json.value(message);
  json.closeObject();
}
