#ifndef TARQ_DMR_EXPLAIN_WORDS_H_
#define TARQ_DMR_EXPLAIN_WORDS_H_

#include <span>
#include <string>

#include "Explanation.h"

// What the facts of an explanation are called, for people and in JSON. Constant strings
// unless said otherwise.

struct ContestWords {
  const char* key;
  const char* name;
  const char* howWon;
  bool twoScores = false;
};
const ContestWords& wordsOf(ResContestKind kind);

// What let a candidate in or kept it out.
const char* ruleKey(ResRule rule);
const char* ruleWords(ResRule rule);

// The causes of points, in the order in which they are shown.
struct PointCause {
  const char* name;
  const char* key;
  int32_t ResPoints::*points;
};
std::span<const PointCause> pointCauses();

const char* categoryWord(MediaCategory category);
const char* categoryNoun(MediaCategory category);  // with its article; of a known category
const char* stageWord(CategoryStage stage);        // null: nothing decided the category
const char* skipKey(ResSkip skip);                 // null: the element was read
const char* skipWords(ResSkip skip);
// What the metadata offers; of metadata that does not parse, why not.
const char* metadataKey(const MetadataFacts& metadata);
std::string metadataWords(const MetadataFacts& metadata);
const char* transferModeWord(TransferMode mode);  // null: no header is sent

// Why no server is asked, of an explanation without a probe.
struct NoProbe {
  const char* key;
  const char* words;
};
NoProbe whyNotProbed(const Explanation& explanation);

// A kind of answer, and the result code that it leads to.
struct ProbeOutcome {
  const char* answer;
  int code;
};
std::span<const ProbeOutcome> probeOutcomes();

// Why the check was refused.
const char* refusalWords(const Verdict& verdict);

// What the media profile table is searched for when the server's answer alone decides.
std::string formatKeyWords(const char* mimeType, const char* contentFeatures);

std::string quoted(std::string_view string);  // in double quotes, otherwise unchanged

#endif  // TARQ_DMR_EXPLAIN_WORDS_H_
