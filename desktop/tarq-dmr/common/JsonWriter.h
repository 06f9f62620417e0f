#ifndef TARQ_DMR_JSON_WRITER_H_
#define TARQ_DMR_JSON_WRITER_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

// Writes JSON without white space.
// Null: a null string becomes `null`. Bytes that are not valid UTF-8 become U+FFFD.
class JsonWriter {
 public:
  const std::string& str() const { return json_; }  // what was written so far
  std::string take() { return std::move(json_); }   // ends the writing

  void openObject() { open('{'); }
  void closeObject() { close('}'); }
  void openArray() { open('['); }
  void closeArray() { close(']'); }
  void key(std::string_view name);  // must need no escapes
  void value(const char* string);
  void value(int number);
  void value(int64_t number);
  void value(bool flag);

 private:
  void open(char bracket);
  void close(char bracket);
  void beginValue();

  std::string json_;
  bool afterValue_ = false;  // a comma comes before the next key or value
};

#endif  // TARQ_DMR_JSON_WRITER_H_
