#ifndef TARQ_DMR_COMMAND_LINE_H_
#define TARQ_DMR_COMMAND_LINE_H_

#include <CLI/CLI.hpp>

// Makes `app` reject, in words that lead on, whatever its commands and options do not take: an unknown
// command or option, an argument too many. Call it when all commands were added.
// Errors: the parsing throws CLI::ParseError. It does so before any callback of a command runs, because a mistyped
// option also puts its value in the wrong place.
void rejectLeftovers(CLI::App& app);

#endif  // TARQ_DMR_COMMAND_LINE_H_
