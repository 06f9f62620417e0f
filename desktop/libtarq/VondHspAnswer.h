#ifndef VOND_HSP_ANSWER_H_
#define VOND_HSP_ANSWER_H_

#include <cstddef>
#include <string_view>

#include "VondString.h"

// Reads the header lines of an HTTP answer and keeps its status and the two headers that a renderer needs. It
// checks the status line itself, because libcurl takes "HTTP/" with anything after it for status 200. Interim
// answers (status 1xx) may come before the final one: every status line starts again.
// Ownership: the object copies the two values.
// Source: RFC 9112, RFC 9110 5.5.
class VondHspAnswer {
 public:
  // Takes one line as received, with its line end.
  // Returns: false when this is not an HTTP answer, when one of the two values has a control byte other than a
  //   tab, or when all lines together exceed the limit of 300 KiB.
  bool AddLine(std::string_view line) noexcept;

  // Returns: 0 before the status line.
  int status() const noexcept { return status_; }
  // Returns: true after the blank line that ends the headers.
  bool IsComplete() const noexcept { return complete_; }
  // Returns: an absent string when there is no such header.
  const VondString& contentType() const noexcept { return contentType_; }
  const VondString& contentFeatures() const noexcept { return contentFeatures_; }

 private:
  bool begin(std::string_view line) noexcept;
  bool addHeader(std::string_view line) noexcept;
  bool addFolded(std::string_view text) noexcept;

  size_t bytes_ = 0;
  int status_ = 0;
  bool complete_ = false;
  VondString contentType_;
  VondString contentFeatures_;
  // The value that a folded line continues; null when it is not kept.
  VondString* unfinished_ = nullptr;
};

#endif  // VOND_HSP_ANSWER_H_
