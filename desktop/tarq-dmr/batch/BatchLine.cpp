#include "BatchLine.h"

#ifdef __SSE2__
#define RAPIDJSON_SSE2
#endif
#include <rapidjson/reader.h>

#include <limits>
#include <string_view>

#include "Utf8.h"

namespace {

// Keeps what the outermost object says of the three fields, as the JSON reader comes across it.
class RequestFields {
 public:
  using Length = rapidjson::SizeType;

  // What the reader calls; false ends the reading.
  bool Null() { return set(Kind::Null); }
  bool Bool(bool) { return set(Kind::Other); }
  bool Int(int number);
  bool Uint(unsigned number) { return number > kMaxInt ? set(Kind::Other) : Int(static_cast<int>(number)); }
  bool Int64(int64_t) { return set(Kind::Other); }
  bool Uint64(uint64_t) { return set(Kind::Other); }
  bool Double(double) { return set(Kind::Other); }
  bool RawNumber(const char*, Length, bool) { return set(Kind::Other); }
  bool String(const char* text, Length length, bool);
  bool Key(const char* name, Length length, bool);
  bool StartObject() { return open(true); }
  bool EndObject(Length) { return close(); }
  bool StartArray() { return open(false); }
  bool EndArray(Length) { return close(); }

  bool nestsTooDeep() const { return depth_ > kMaxDepth; }
  const char* problem() const;  // null: none
  BatchRequest request(int32_t defaultRegion) const;

 private:
  static constexpr int kMaxDepth = 64;  // the reader calls itself for every level
  static constexpr unsigned kMaxInt = std::numeric_limits<int32_t>::max();

  enum class Kind { Missing, Text, Null, Number, Other };
  struct Field {
    Kind kind = Kind::Missing;
    std::string_view text;
    int32_t number = 0;

    bool isText() const { return kind == Kind::Text; }
  };

  bool set(Kind kind) {
    if (depth_ == 1 && current_ != nullptr) current_->kind = kind;
    return true;
  }
  bool open(bool isObject);
  bool close() {
    --depth_;
    return true;
  }

  Field uri_;
  Field metadata_;
  Field region_;
  Field* current_ = nullptr;  // whose value comes next in the outermost object; null: a key of no interest
  int depth_ = 0;
  bool isObject_ = false;  // the outermost value
};

bool RequestFields::Int(int number) {
  if (depth_ == 1 && current_ != nullptr) current_->number = number;
  return set(Kind::Number);
}

bool RequestFields::String(const char* text, Length length, bool) {
  if (depth_ == 1 && current_ != nullptr) current_->text = {text, length};
  return set(Kind::Text);
}

bool RequestFields::Key(const char* name, Length length, bool) {
  if (depth_ != 1) return true;
  const std::string_view key(name, length);
  current_ = key == "uri" ? &uri_ : key == "metadata" ? &metadata_ : key == "region" ? &region_ : nullptr;
  return true;
}

bool RequestFields::open(bool isObject) {
  if (depth_ == 0) isObject_ = isObject;
  set(Kind::Other);
  ++depth_;
  return !nestsTooDeep();
}

const char* RequestFields::problem() const {
  if (!isObject_) return "the line is no JSON object";
  if (uri_.kind == Kind::Missing) return "uri is missing";
  if (!uri_.isText()) return "uri is no text";
  if (metadata_.kind == Kind::Number || metadata_.kind == Kind::Other)
    return "metadata is neither a text nor null";
  if (region_.kind != Kind::Missing && region_.kind != Kind::Number) return "region is no 32-bit integer";
  const std::string_view metadata = metadata_.isText() ? metadata_.text : std::string_view();
  for (const std::string_view text : {uri_.text, metadata}) {
    if (text.find('\0') != std::string_view::npos) return "a text holds a NUL character";
    if (!isValidUtf8(text)) return "a text holds half a surrogate pair";  // the reader lets "\udc00" pass
  }
  return nullptr;
}

BatchRequest RequestFields::request(int32_t defaultRegion) const {
  BatchRequest request;
  request.uri = uri_.text.data();
  request.metadata = metadata_.isText() ? metadata_.text.data() : nullptr;
  request.region = region_.kind == Kind::Number ? region_.number : defaultRegion;
  return request;
}

// 0x1A to 0x1F stand nowhere in JSON, but the reader's vector code takes them for printable.
bool holdsStrayControl(std::string_view text) {
  unsigned char found = 0;  // a byte, so that the loop becomes vector code
  for (const char c : text) found |= static_cast<unsigned char>(c >= 0x1A && c < 0x20);
  return found != 0;
}

BatchRequest refuse(const char* problem) {
  BatchRequest request;
  request.problem = problem;
  return request;
}

}  // namespace

BatchRequest parseBatchLine(const InputLine& line, int32_t defaultRegion) {
  if (line.text == nullptr) return refuse("the line is longer than 32 MiB");
  const std::string_view text(line.text, line.length);
  if (!isValidUtf8(text)) return refuse("the line is no valid UTF-8");
  if (holdsStrayControl(text)) return refuse("the line is no valid JSON");

  RequestFields fields;
  rapidjson::InsituStringStream stream(line.text);
  rapidjson::Reader reader;
  const rapidjson::ParseResult result = reader.Parse<rapidjson::kParseInsituFlag>(stream, fields);
  if (fields.nestsTooDeep()) return refuse("the line is nested too deeply");
  if (result.Code() == rapidjson::kParseErrorDocumentEmpty) return refuse("the line is blank");
  // The reader takes a NUL for the end of the line.
  if (result.IsError() || stream.Tell() != line.length) return refuse("the line is no valid JSON");
  if (const char* problem = fields.problem()) return refuse(problem);
  return fields.request(defaultRegion);
}
