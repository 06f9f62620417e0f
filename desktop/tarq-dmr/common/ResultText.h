#ifndef TARQ_DMR_RESULT_TEXT_H_
#define TARQ_DMR_RESULT_TEXT_H_

#include <span>

// The result codes of a check in words.
struct ResultText {
  int code;
  const char* words;
};
std::span<const ResultText> resultTexts();

// Null: never.
const char* describe(int resultCode);

#endif  // TARQ_DMR_RESULT_TEXT_H_
