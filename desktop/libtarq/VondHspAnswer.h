#ifndef VOND_HSP_ANSWER_H_
#define VOND_HSP_ANSWER_H_

#include <cstddef>
#include <string_view>

#include "VondString.h"

// Reads the header lines of an HTTP answer and keeps its status and the two headers that the renderer looks
// at (RFC 7230 3). It judges the status line itself: libcurl takes "HTTP/" with anything behind it for a 200.
// Interim answers (status 1xx) may come before the final one: each status line begins anew.
// Threads: one. Owns: copies of the two values.
class VondHspAnswer {
 public:
  // One line as received, with its line end. False: this is no HTTP answer, or all lines together exceed the
  // limit of 300 KiB.
  bool AddLine(std::string_view line) noexcept;

  int status() const noexcept { return status_; }         // 0 before the status line
  bool IsComplete() const noexcept { return complete_; }  // the blank line after the headers has come
  const VondString& contentType() const noexcept { return contentType_; }          // absent: none
  const VondString& contentFeatures() const noexcept { return contentFeatures_; }  // absent: none

 private:
  bool begin(std::string_view line) noexcept;
  void addHeader(std::string_view line) noexcept;
  void addFolded(std::string_view text) noexcept;

  size_t bytes_ = 0;
  int status_ = 0;
  bool complete_ = false;
  VondString contentType_;
  VondString contentFeatures_;
  VondString* unfinished_ = nullptr;  // the value that a folded line goes on with; null: one that is not kept
};

#endif  // VOND_HSP_ANSWER_H_
