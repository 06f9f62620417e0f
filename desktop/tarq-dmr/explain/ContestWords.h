#ifndef TARQ_DMR_CONTEST_WORDS_H_
#define TARQ_DMR_CONTEST_WORDS_H_

#include <optional>
#include <string>

#include "Explanation.h"
#include "WhatIf.h"

// Sentences about the contest of an explanation that has one.

// Why this contest was held.
std::string contestReason(const Explanation& explanation);

// Why candidate `index`, which is out, is out.
std::string exclusionReason(const Explanation& explanation, size_t index);
// Which single change would let it in, if there is a simple one.
std::optional<WhatIf> changeToEnter(const Explanation& explanation, size_t index);
std::string wouldBe(const WhatIf& change);  // "would be AVC_TTS in region 2"
// Both in one line.
std::string exclusionText(const Explanation& explanation, size_t index);

// The first element that a single change would let in, with the change.
struct ResChange {
  int index;
  WhatIf change;
};
std::optional<ResChange> firstChange(const Explanation& explanation);

// The candidate with the most points after the winner, or -1.
int secondOf(const Explanation& explanation);

// How far the winner is ahead of the second, and by what; or why there is no winner.
std::string leadWords(const Explanation& explanation);

#endif  // TARQ_DMR_CONTEST_WORDS_H_
