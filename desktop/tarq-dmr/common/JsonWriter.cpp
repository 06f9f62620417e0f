#include "JsonWriter.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "Utf8.h"

struct JsonWriter::Library {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer{buffer};

  void string(std::string_view string) {
    writer.String(string.data(), static_cast<rapidjson::SizeType>(string.size()));
  }
};

JsonWriter::JsonWriter() : library_(std::make_unique<Library>()) {}

JsonWriter::~JsonWriter() = default;

std::string JsonWriter::str() const { return {library_->buffer.GetString(), library_->buffer.GetSize()}; }

void JsonWriter::openObject() { library_->writer.StartObject(); }
void JsonWriter::closeObject() { library_->writer.EndObject(); }
void JsonWriter::openArray() { library_->writer.StartArray(); }
void JsonWriter::closeArray() { library_->writer.EndArray(); }
void JsonWriter::key(std::string_view name) { library_->string(name); }

void JsonWriter::value(const char* string) {
  if (string == nullptr) {
    library_->writer.Null();
  } else if (isValidUtf8(string)) {
    library_->string(string);
  } else {
    library_->string(repairUtf8(string));
  }
}

void JsonWriter::value(int number) { library_->writer.Int(number); }
void JsonWriter::value(bool flag) { library_->writer.Bool(flag); }
