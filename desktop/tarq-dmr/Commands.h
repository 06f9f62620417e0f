#ifndef TARQ_DMR_COMMANDS_H_
#define TARQ_DMR_COMMANDS_H_

#include <CLI/CLI.hpp>
#include <functional>
#include <utility>
#include <vector>

// What runs a command with the options that were parsed.
// Returns: the exit code.
using Run = std::function<int()>;

// Adds to `app` what the program takes: every command with its options and its help.
// Returns: what runs each command.
std::vector<std::pair<const CLI::App*, Run>> addCommands(CLI::App& app);

#endif  // TARQ_DMR_COMMANDS_H_
