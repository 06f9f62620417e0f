#ifndef TARQ_DMR_RESULT_TEXT_H_
#define TARQ_DMR_RESULT_TEXT_H_

// A result code of a check in words.
// Null: never.
const char* describe(int resultCode);

#endif  // TARQ_DMR_RESULT_TEXT_H_
