#include "BatchLine.h"

#include <rapidjson/reader.h>

#include <limits>
#include <string_view>

#include "Utf8.h"

namespace {

// Collects the three fields of the outermost object while the JSON reader comes across them.
class RequestFields : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, RequestFields> {
 public:
  using Length = rapidjson::SizeType;

  // The reader calls these; false ends the reading.
  bool Default() { return set(Kind::Other); }
  bool Null() { return set(Kind::Null); }
  bool Int(int number);
  bool Uint(unsigned number) { return number > kMaxInt ? Default() : Int(static_cast<int>(number)); }
  bool String(const char* string, Length length, bool);
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

  enum class Kind { Missing, String, Null, Number, Other };
  struct Field {
    Kind kind = Kind::Missing;
    std::string_view string;
    int32_t number = 0;
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
  Field* current_ = nullptr;  // the field whose value comes next; null: of a key that is ignored
  int depth_ = 0;
  bool isObject_ = false;  // the outermost value
};

bool RequestFields::Int(int number) {
  if (depth_ == 1 && current_ != nullptr) current_->number = number;
  return set(Kind::Number);
}

bool RequestFields::String(const char* string, Length length, bool) {
  if (depth_ == 1 && current_ != nullptr) current_->string = {string, length};
  return set(Kind::String);
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
  if (!isObject_) return "the line is not a JSON object";
  if (uri_.kind == Kind::Missing) return "uri is missing";
  if (uri_.kind != Kind::String) return "uri is not a string";
  if (metadata_.kind == Kind::Number || metadata_.kind == Kind::Other)
    return "metadata is neither a string nor null";
  if (region_.kind != Kind::Missing && region_.kind != Kind::Number) return "region is not a 32-bit integer";
  const bool hasMetadata = metadata_.kind == Kind::String;
  for (const std::string_view string : {uri_.string, hasMetadata ? metadata_.string : std::string_view()}) {
    if (string.find('\0') != std::string_view::npos) return "a string contains a NUL character";
    if (!isValidUtf8(string)) return "a string contains an unpaired surrogate";  // the reader takes "\udc00"
  }
  return nullptr;
}

BatchRequest RequestFields::request(int32_t defaultRegion) const {
  BatchRequest request;
  request.uri = uri_.string.data();
  request.metadata = metadata_.kind == Kind::String ? metadata_.string.data() : nullptr;
  request.region = region_.kind == Kind::Number ? region_.number : defaultRegion;
  return request;
}

// Reads the whole line.
// Returns: what is wrong with it; null: nothing.
const char* readFields(const InputLine& line, RequestFields& fields) {
  if (line.bytes == nullptr) return "the line is longer than 32 MiB";
  if (!isValidUtf8({line.bytes, line.length})) return "the line is not valid UTF-8";
  rapidjson::InsituStringStream stream(line.bytes);
  rapidjson::Reader reader;
  const rapidjson::ParseResult result = reader.Parse<rapidjson::kParseInsituFlag>(stream, fields);
  if (fields.nestsTooDeep()) return "the line is nested too deeply";
  if (result.Code() == rapidjson::kParseErrorDocumentEmpty) return "the line is blank";
  // The reader takes a NUL for the end of the line.
  if (result.IsError() || stream.Tell() != line.length) return "the line is not valid JSON";
  return fields.problem();
}

}  // namespace

BatchRequest parseBatchLine(const InputLine& line, int32_t defaultRegion) {
  RequestFields fields;
  if (const char* problem = readFields(line, fields)) return {.problem = problem};
  return fields.request(defaultRegion);
}
