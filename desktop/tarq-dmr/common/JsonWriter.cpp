#include "JsonWriter.h"

#include <rapidjson/writer.h>

#include <algorithm>

#include "Utf8.h"

namespace {

bool needsNoEscape(std::string_view string) {
  return std::ranges::all_of(string, [](char c) { return c >= 0x20 && c < 0x7F && c != '"' && c != '\\'; });
}

// Where the JSON library writes to.
struct AppendStream {
  using Ch = char;
  void Put(char c) { to += c; }
  void Flush() {}

  std::string& to;
};

void appendEscaped(std::string& to, std::string_view string) {
  AppendStream stream{to};
  rapidjson::Writer<AppendStream> writer(stream);
  writer.String(string.data(), static_cast<rapidjson::SizeType>(string.size()));
}

}  // namespace

void JsonWriter::open(char bracket) {
  beginValue();
  json_ += bracket;
  afterValue_ = false;
}

void JsonWriter::close(char bracket) {
  json_ += bracket;
  afterValue_ = true;
}

void JsonWriter::beginValue() {
  if (afterValue_) json_ += ',';
  afterValue_ = true;
}

void JsonWriter::key(std::string_view name) {
  beginValue();
  ((json_ += '"') += name) += "\":";
  afterValue_ = false;
}

void JsonWriter::value(const char* string) {
  beginValue();
  if (string == nullptr) {
    json_ += "null";
  } else if (needsNoEscape(string)) {  // nearly all; the library is slower
    ((json_ += '"') += string) += '"';
  } else {
    appendEscaped(json_, repairUtf8(string));
  }
}

void JsonWriter::value(int number) { value(int64_t{number}); }

void JsonWriter::value(int64_t number) {
  beginValue();
  json_ += std::to_string(number);
}

void JsonWriter::value(bool flag) {
  beginValue();
  json_ += flag ? "true" : "false";
}
