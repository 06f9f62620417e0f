#ifndef TARQ_DMR_JSON_OBJECT_H_
#define TARQ_DMR_JSON_OBJECT_H_

#include <exception>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "JsonWriter.h"
#include "VondString.h"

// Writes one JSON object key by key: the constructor opens it, the destructor closes it, unless an exception
// ends it: closing may need memory that is missing.
// Null: a null or absent string becomes `null`.
class JsonObject {
 public:
  explicit JsonObject(JsonWriter& json) : json_(json) { json_.openObject(); }
  ~JsonObject() noexcept(false) {
    if (std::uncaught_exceptions() == exceptions_) json_.closeObject();
  }
  JsonObject(const JsonObject&) = delete;
  JsonObject& operator=(const JsonObject&) = delete;

  void add(std::string_view key, const char* string) { addValue(key, string); }
  void add(std::string_view key, const std::string& string) { addValue(key, string.c_str()); }
  void add(std::string_view key, const VondString& string) { addValue(key, string.c_str()); }
  void add(std::string_view key, int number) { addValue(key, number); }
  void add(std::string_view key, int64_t number) { addValue(key, number); }
  void add(std::string_view key, bool flag) { addValue(key, flag); }
  void addNull(std::string_view key) { addValue(key, static_cast<const char*>(nullptr)); }
  void addIndex(std::string_view key, int index) { index < 0 ? addNull(key) : add(key, index); }

  void addJson(std::string_view key, std::string_view json) {  // a value that is JSON already
    json_.key(key);
    json_.json(json);
  }

  void addNumbers(std::string_view key, std::span<const int> numbers);
  void addStrings(std::string_view key, const std::vector<std::string>& strings);

  // `write` takes the JsonObject.
  template <class Write>
  void addObject(std::string_view key, Write write) {
    json_.key(key);
    JsonObject object(json_);
    write(object);
  }
  // `write` takes the JsonObject and its index, in [0, count).
  template <class Write>
  void addObjects(std::string_view key, size_t count, Write write) {
    json_.key(key);
    json_.openArray();
    for (size_t i = 0; i < count; ++i) {
      JsonObject object(json_);
      write(object, i);
    }
    json_.closeArray();
  }

 private:
  template <class Value>
  void addValue(std::string_view key, Value value) {
    json_.key(key);
    json_.value(value);
  }

  JsonWriter& json_;
  const int exceptions_ = std::uncaught_exceptions();
};

#endif  // TARQ_DMR_JSON_OBJECT_H_
