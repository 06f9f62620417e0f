#ifndef TARQ_DMR_COMPLETIONS_H_
#define TARQ_DMR_COMPLETIONS_H_

#include <CLI/CLI.hpp>
#include <string>

// Scripts that complete the program's commands and options, and the files that some options take.

std::string bashCompletion(const CLI::App& app);
std::string zshCompletion(const CLI::App& app);
std::string fishCompletion(const CLI::App& app);

#endif  // TARQ_DMR_COMPLETIONS_H_
