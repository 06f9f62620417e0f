#ifndef TARQ_DMR_WHAT_IF_H_
#define TARQ_DMR_WHAT_IF_H_

#include <optional>
#include <string>

#include "TarqDlnaResSelection.h"

// One change that would let a record in.
struct WhatIf {
  const char* key;     // of the change, for JSON
  std::string words;   // "in region 2"
  int32_t region = 0;  // the region of the change when its key is "region"
  const char* format;  // what the record would be played as; null: it would win without a format
};

// The first change that would let in a record that the contest of `choice` keeps out. Found by holding the
// contest for changed copies of the record, one change at a time.
std::optional<WhatIf> whatIf(const ResChoice& choice, int32_t region, const TarqDlnaResMetadata& record);

#endif  // TARQ_DMR_WHAT_IF_H_
