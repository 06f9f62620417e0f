#ifndef TARQ_DMR_HELP_COMMAND_H_
#define TARQ_DMR_HELP_COMMAND_H_

#include <CLI/CLI.hpp>
#include <span>
#include <string>

// What is too long for the help of one command, or belongs to several.
struct HelpTopic {
  const char* name;
  const char* description;
  std::string (*text)();
};
std::span<const HelpTopic> helpTopics();

// Prints a topic, or the help of a command of `program`; without either, the list of topics.
// Errors: CommandError when there is neither a topic nor a command of that name.
int runHelp(const CLI::App& program, const std::string& name);

#endif  // TARQ_DMR_HELP_COMMAND_H_
