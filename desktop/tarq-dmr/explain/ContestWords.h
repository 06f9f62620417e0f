#ifndef TARQ_DMR_CONTEST_WORDS_H_
#define TARQ_DMR_CONTEST_WORDS_H_

#include <string>

#include "Explanation.h"

// Sentences about the contest of an explanation that has one.

// Why this contest was held.
std::string contestReason(const Explanation& explanation);

// Why candidate `index` is out, and which single change would let it in, if there is a simple one. Empty:
// it is in.
std::string exclusionReason(const Explanation& explanation, size_t index);

// How far the winner is ahead of the second, and by what; or why there is no winner.
std::string leadWords(const Explanation& explanation);

#endif  // TARQ_DMR_CONTEST_WORDS_H_
