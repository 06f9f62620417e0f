#ifndef TARQ_DMR_CHOICE_WORDS_H_
#define TARQ_DMR_CHOICE_WORDS_H_

#include <cstdint>
#include <string>

#include "TarqDmrParamsInterface.h"

// How a resource is chosen, in words, for a program that makes the choice itself.
struct ChoiceWords {
  std::string line;  // "res 2 of 4, MPEG4, original, 1510 points ahead of res 1: position +10"
  std::string text;  // the whole explanation
  std::string json;  // the same as one object
  std::string item;  // what a page shows of it: see itemJson
  bool asksServer;
};

// No server is asked. The plug-in's region must be `region`.
// Null: none.
ChoiceWords explainChoice(TarqDmrParamsInterface& params, const char* uri, const char* metadata,
                          int32_t region);

#endif  // TARQ_DMR_CHOICE_WORDS_H_
