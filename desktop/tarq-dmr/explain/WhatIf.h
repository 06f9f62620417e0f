#ifndef TARQ_DMR_WHAT_IF_H_
#define TARQ_DMR_WHAT_IF_H_

#include <string>

#include "TarqDlnaResSelection.h"

// What would let a record in that the contest of `choice` keeps out: "would be AVC_TTS in region 2". Found by
// holding the contest for changed copies of the record, one change at a time. Empty: none of the changes.
std::string whatIf(const ResChoice& choice, int32_t region, const TarqDlnaResMetadata& record);

#endif  // TARQ_DMR_WHAT_IF_H_
