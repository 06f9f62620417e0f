#ifndef TARQ_DMR_TEXT_OUTPUT_H_
#define TARQ_DMR_TEXT_OUTPUT_H_

#include <string>
#include <string_view>

#include "TarqResourceCheckerInterface.h"

// Results for human readers, on standard output.

// Control characters are shown as \xNN, so that a server cannot play tricks on a terminal.
std::string printable(std::string_view text);

// "  label    text": `labelWidth` is the column the text begins in. A null text shows as "-", an empty one as
// two quotes.
void printRow(std::string_view label, int labelWidth, const char* text);
// What to play, one row a field.
void printResource(const TarqResourceInfo& resource);

#endif  // TARQ_DMR_TEXT_OUTPUT_H_
