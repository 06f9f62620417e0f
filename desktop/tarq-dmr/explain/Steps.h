#ifndef TARQ_DMR_STEPS_H_
#define TARQ_DMR_STEPS_H_

#include <string>
#include <string_view>

// A server's string on one line of a sensible length; --json has it whole.
// Null: the empty string.
std::string shown(const char* string, size_t limitBytes = 160);

std::string resText(int index);  // "res 2"

// The numbered steps of an explanation, as they come.
class Steps {
 public:
  void begin(const std::string& title);
  void row(std::string_view label, const std::string& words);  // no label: it goes on with the row before
  void add(const std::string& lines) { text_ += lines; }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
  int step_ = 0;
};

#endif  // TARQ_DMR_STEPS_H_
