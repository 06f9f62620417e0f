#ifndef TARQ_DMR_JSON_TEXT_H_
#define TARQ_DMR_JSON_TEXT_H_

#include <string>
#include <string_view>

#include "TarqResourceCheckerInterface.h"

// Builds JSON without blanks, in a text whose memory is kept from one use to the next.
// Null: a null text becomes `null`. Bytes that are no valid UTF-8 become U+FFFD.
class JsonText {
 public:
  void clear();
  const std::string& text() const { return text_; }

  void openObject() { open('{'); }
  void closeObject() { close('}'); }
  void openArray() { open('['); }
  void closeArray() { close(']'); }
  void key(std::string_view name);  // needs no escape
  void value(const char* text);
  void value(int number);
  void value(bool flag);

 private:
  void open(char bracket);
  void close(char bracket);
  void separate();

  std::string text_;
  bool afterValue_ = false;
};

// The result of one check as one object: what to play, or why not. Keys and their order are fixed.
void writeAccepted(JsonText& json, const TarqResourceInfo& resource);
void writeRefused(JsonText& json, int code, const char* message);

#endif  // TARQ_DMR_JSON_TEXT_H_
