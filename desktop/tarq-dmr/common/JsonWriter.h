#ifndef TARQ_DMR_JSON_WRITER_H_
#define TARQ_DMR_JSON_WRITER_H_

#include <memory>
#include <string>
#include <string_view>

// Writes JSON without white space.
// Null: a null string becomes `null`. Bytes that are not valid UTF-8 become U+FFFD.
class JsonWriter {
 public:
  JsonWriter();
  ~JsonWriter();
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;

  std::string str() const;  // what was written so far

  void openObject();
  void closeObject();
  void openArray();
  void closeArray();
  void key(std::string_view name);
  void value(const char* string);
  void value(int number);
  void value(bool flag);

 private:
  struct Library;  // keeps the JSON library out of this header

  std::unique_ptr<Library> library_;
};

#endif  // TARQ_DMR_JSON_WRITER_H_
