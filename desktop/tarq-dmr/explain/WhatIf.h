#ifndef TARQ_DMR_WHAT_IF_H_
#define TARQ_DMR_WHAT_IF_H_

#include <string>

#include "TarqDlnaResSelection.h"

// Holds one of the contests for points; not the multi-picture one. The winner's index or -1.
int runContest(ResContestKind kind, const TarqDlnaResSelection& selection, int count,
               TarqDlnaResMetadata* records, ResScore* scores);

// What would let a record in that a contest keeps out: "as AVC_TTS in region 2". Found by holding
// contests for changed copies of the record, one change at a time. Empty: none of the changes.
std::string whatIf(ResContestKind kind, int32_t region, const TarqDlnaResMetadata& record);

#endif  // TARQ_DMR_WHAT_IF_H_
