#include "BatchLine.h"

#include <rapidjson/reader.h>

#include <limits>
#include <string_view>

#include "PassedMembers.h"
#include "Utf8.h"

namespace {

// Notes where a string ended. The reader works on a copy of its stream while it calls the handler, and an escaped
// string is shorter than the bytes that it came from.
class LineStream : public rapidjson::InsituStringStream {
 public:
  LineStream(char* line, const char*& endOfString)
      : GenericInsituStringStream(line), endOfString_(&endOfString) {}

  // The reader calls this after the closing quote.
  size_t PutEnd(char* begin) {
    *endOfString_ = src_;
    return GenericInsituStringStream::PutEnd(begin);
  }

 private:
  const char** endOfString_;
};

}  // namespace

// As fast as the stream it derives from.
template <>
struct rapidjson::StreamTraits<LineStream> : rapidjson::StreamTraits<rapidjson::InsituStringStream> {};

namespace {

// Null: nothing is wrong with it.
const char* stringProblem(std::string_view string) {
  if (string.find('\0') != std::string_view::npos) return "a string contains a NUL character";
  if (!isValidUtf8(string)) return "a string contains an unpaired surrogate";  // the reader takes "\udc00"
  return nullptr;
}

// Collects the fields of the outermost object while the JSON reader comes across them.
class RequestFields : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, RequestFields> {
 public:
  using Length = rapidjson::SizeType;

  // Where the reader's stream notes the end of a string.
  const char*& endOfString() { return endOfString_; }

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
  std::string passed() const { return passed_.json(); }

 private:
  static constexpr int kMaxDepth = 64;  // the reader calls itself for every level
  static constexpr unsigned kMaxInt = std::numeric_limits<int32_t>::max();

  enum class Kind { Missing, String, Null, Number, Other };
  struct Field {
    bool isAbsent() const { return kind == Kind::Missing || kind == Kind::Null; }

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
  PassedMembers passed_;
  const char* keyProblem_ = nullptr;  // of a key that is passed on
  const char* endOfString_ = nullptr;
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
  if (current_ != nullptr || !PassedMembers::takes(key)) return true;
  if (const char* problem = stringProblem(key)) keyProblem_ = problem;
  passed_.set(key, endOfString_);
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
  if (uri_.isAbsent()) return "uri is missing";
  if (uri_.kind != Kind::String) return "uri is not a string";
  if (!metadata_.isAbsent() && metadata_.kind != Kind::String) return "metadata is neither a string nor null";
  if (!region_.isAbsent() && region_.kind != Kind::Number) return "region is not a 32-bit integer";
  if (const char* problem = stringProblem(uri_.string)) return problem;
  if (metadata_.kind != Kind::String) return keyProblem_;
  const char* problem = stringProblem(metadata_.string);
  return problem != nullptr ? problem : keyProblem_;
}

BatchRequest RequestFields::request(int32_t defaultRegion) const {
  BatchRequest request;
  request.uri = uri_.string.data();
  request.metadata = metadata_.kind == Kind::String ? metadata_.string.data() : nullptr;
  request.region = region_.kind == Kind::Number ? region_.number : defaultRegion;
  request.passed = passed();
  return request;
}

// Reads the whole line.
// Returns: why its fields cannot be read; null: they were.
const char* readFields(const InputLine& line, RequestFields& fields) {
  if (line.bytes == nullptr) return "the line is longer than 32 MiB";
  if (!isValidUtf8({line.bytes, line.length})) return "the line is not valid UTF-8";
  LineStream stream(line.bytes, fields.endOfString());
  rapidjson::Reader reader;
  const rapidjson::ParseResult result = reader.Parse<rapidjson::kParseInsituFlag>(stream, fields);
  if (fields.nestsTooDeep()) return "the line is nested too deeply";
  if (result.Code() == rapidjson::kParseErrorDocumentEmpty) return "the line is blank";
  // The reader takes a NUL for the end of the line.
  if (result.IsError() || stream.Tell() != line.length) return "the line is not valid JSON";
  return nullptr;
}

}  // namespace

BatchRequest parseBatchLine(const InputLine& line, int32_t defaultRegion) {
  RequestFields fields;
  if (const char* unreadable = readFields(line, fields)) return {.problem = unreadable};
  if (const char* problem = fields.problem()) return {.problem = problem, .passed = fields.passed()};
  return fields.request(defaultRegion);
}
