#ifndef TARQ_DMR_BATCH_LINE_H_
#define TARQ_DMR_BATCH_LINE_H_

#include <cstdint>
#include <string>

#include "BatchInput.h"

// What one line of a batch asks for. The strings lie in the line itself.
struct BatchRequest {
  const char* problem = nullptr;  // what is wrong with the line, a constant; null: nothing
  const char* uri = nullptr;
  const char* metadata = nullptr;  // null: none
  int32_t region = 0;
  std::string passed = {};  // the members that the result line repeats, each after a comma
};

// Reads {"uri":"…","metadata":"…","region":N}. Metadata and region may be missing, null is the same as missing,
// "id" and keys that begin with "x-" are passed on, other keys are ignored, and of two equal keys the last counts.
// Works in place: it changes the bytes of the line.
// Threads: different lines at once.
// Errors: std::bad_alloc.
BatchRequest parseBatchLine(const InputLine& line, int32_t defaultRegion);

#endif  // TARQ_DMR_BATCH_LINE_H_
