#ifndef TARQ_DMR_JSON_WRITER_H_
#define TARQ_DMR_JSON_WRITER_H_

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>

// Writes JSON without white space.
// Null: a null string becomes `null`. Bytes that are not valid UTF-8 become U+FFFD.
class JsonWriter {
 public:
  JsonWriter() = default;  // keeps it
  // Passes it on block by block, for it may be long; what is left when the line ends.
  explicit JsonWriter(std::FILE* stream) : stream_(stream) {}

  const std::string& str() const { return json_; }  // without a stream: what was written so far
  std::string take() { return std::move(json_); }   // the same, and ends the writing
  void endLine();                                   // with a stream only

  void openObject() { open('{'); }
  void closeObject() { close('}'); }
  void openArray() { open('['); }
  void closeArray() { close(']'); }
  void key(std::string_view name);  // must need no escapes
  void value(const char* string);
  void value(int number);
  void value(int64_t number);
  void value(bool flag);
  void json(std::string_view value);  // a value that is JSON already

 private:
  void open(char bracket);
  void close(char bracket);
  void beginValue();
  void write(std::string_view bytes);
  void writeEscaped(std::string_view string);
  void flush();

  std::FILE* stream_ = nullptr;  // null: keep it
  std::string json_;
  bool afterValue_ = false;  // a comma comes before the next key or value
};

#endif  // TARQ_DMR_JSON_WRITER_H_
