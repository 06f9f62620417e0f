#ifndef TARQ_DMR_BATCH_LINE_H_
#define TARQ_DMR_BATCH_LINE_H_

#include <cstdint>

#include "BatchInput.h"

// What one line of a batch asks for. The strings lie in the line itself.
struct BatchRequest {
  const char* problem = nullptr;  // what is wrong with the line, a constant; null: nothing
  const char* uri = nullptr;
  const char* metadata = nullptr;  // null: none
  int32_t region = 0;
};

// Reads {"uri":"…","metadata":"…" or null,"region":N}. Metadata and region may be missing, other keys are
// ignored, and of two equal keys the last counts. Works in place: it changes the bytes of the line.
// Threads: different lines at once.
BatchRequest parseBatchLine(const InputLine& line, int32_t defaultRegion);

#endif  // TARQ_DMR_BATCH_LINE_H_
