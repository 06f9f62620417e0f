#include "PassedMembers.h"

#include <algorithm>
#include <cstring>

#include "JsonWriter.h"
#include "Utf8.h"

namespace {

const char* endOfString(const char* quote) {
  const char* end = quote + 1;
  while (*end != '\0' && *end != '"') end += *end == '\\' && end[1] != '\0' ? 2 : 1;
  return *end == '"' ? end + 1 : end;
}

// If the value is not valid JSON, it is enough not to read past the NUL: the line is rejected then.
std::string_view valueAfter(const char* key) {
  const char* const begin = key + std::strspn(key, " \t\r:");
  const char* end = begin;
  for (int depth = 0; *end != '\0' && (end == begin || depth > 0 || !std::strchr(" \t\r,}", *end));) {
    if (*end == '{' || *end == '[') ++depth;
    if (*end == '}' || *end == ']') --depth;
    end = *end == '"' ? endOfString(end) : end + 1;
  }
  return {begin, static_cast<size_t>(end - begin)};
}

// The same value; in its strings, the only place for such characters, what could play tricks on a terminal is escaped.
std::string harmless(std::string_view json) {
  std::string copy;
  while (!json.empty()) {
    const Utf8Piece piece = takePiece(json);
    const bool isEscaped = piece.kind == Utf8Piece::Kind::kControl && piece.codePoint >= 0x7F;
    isEscaped ? copy.append(unicodeEscape(piece.codePoint, "0123456789ABCDEF")) : copy.append(piece.bytes);
  }
  std::ranges::replace(copy, '\r', ' ');  // white space here, but to some readers the end of a line
  return copy;
}

}  // namespace

void PassedMembers::set(std::string_view key, const char* afterKey) {
  const auto [place, isNew] = places_.try_emplace(key, members_.size());
  if (isNew) members_.emplace_back(key, "");
  members_[place->second].second = harmless(valueAfter(afterKey));
}

std::string PassedMembers::json() const {
  std::string json;
  for (const auto& [key, value] : members_) {
    JsonWriter name;
    name.value(std::string(key).c_str());
    ((json += ',') += name.str() + ':') += value;
  }
  return json;
}
