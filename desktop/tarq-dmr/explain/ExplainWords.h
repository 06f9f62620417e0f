#ifndef TARQ_DMR_EXPLAIN_WORDS_H_
#define TARQ_DMR_EXPLAIN_WORDS_H_

#include <span>
#include <string>

#include "Explanation.h"

// How the facts of an explanation are called, for people and in JSON. Constant texts unless said otherwise.

struct ContestWords {
  const char* key;
  const char* name;
  const char* howWon;
  bool twoScores = false;
};
const ContestWords& wordsOf(ResContestKind kind);

const char* ruleKey(ResRule rule);
bool isOut(ResRule rule);
// What let the record in; null where the rule keeps it out.
const char* ruleWords(ResRule rule, const TarqDlnaResMetadata& record);

const char* categoryWord(int category);
const char* categoryNoun(int category);      // with its article; of a known category
const char* stageWord(CategoryStage stage);  // null: nothing told the category
const char* metadataWords(MetadataState state);
const char* transferModeWord(int mode);  // null: none is asked for

// Why nobody is asked, of an explanation without a probe.
const char* whyNotProbed(const Explanation& explanation);

// A kind of answer, and the result code that a check comes to with it.
struct ProbeOutcome {
  const char* answer;
  int code;
};
std::span<const ProbeOutcome> probeOutcomes();

// What the media profile table is asked for where the server's answer alone decides.
std::string formatKeyWords(const char* mimeType, const char* contentFeatures);

std::string quoted(std::string_view text);  // in double quotes, otherwise as it stands

#endif  // TARQ_DMR_EXPLAIN_WORDS_H_
