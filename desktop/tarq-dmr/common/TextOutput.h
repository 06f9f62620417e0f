#ifndef TARQ_DMR_TEXT_OUTPUT_H_
#define TARQ_DMR_TEXT_OUTPUT_H_

#include <string>
#include <string_view>

#include "TarqResourceCheckerInterface.h"

// Results for people, on standard output.

// Shows as \xNN or \uNNNN what could play tricks on a terminal. Every byte becomes at least one.
std::string printable(std::string_view text);

// Prints "  label    value", the label padded to `labelWidth` columns.
// Null: shown as "-"; an empty string is shown as two quotes.
void printRow(std::string_view label, int labelWidth, const char* value);
// Prints what to play, one row per field.
void printResource(const TarqResourceInfo& resource);

#endif  // TARQ_DMR_TEXT_OUTPUT_H_
