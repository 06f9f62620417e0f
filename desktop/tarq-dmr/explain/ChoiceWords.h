#ifndef TARQ_DMR_CHOICE_WORDS_H_
#define TARQ_DMR_CHOICE_WORDS_H_

#include <cstdint>
#include <string>

#include "TarqDmrParamsInterface.h"

// How a resource is chosen, in words, for a program that makes the choice itself.
struct ChoiceWords {
  std::string line;   // "res 2 of 4, MPEG4, original, 1510 points ahead of res 1: position +10"
  std::string whole;  // the explanation as text or as one object
  std::string item;   // what a page shows of it: see itemJson
  bool asksServer;
};

// How much of it is wanted.
enum class ChoiceDetail { kLine, kText, kJson };

// No server is asked. The plug-in's region must be `region`.
// Null: none.
ChoiceWords explainChoice(TarqDmrParamsInterface& params, const char* uri, const char* metadata,
                          int32_t region, ChoiceDetail detail);

#endif  // TARQ_DMR_CHOICE_WORDS_H_
