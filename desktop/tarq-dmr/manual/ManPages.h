#ifndef TARQ_DMR_MAN_PAGES_H_
#define TARQ_DMR_MAN_PAGES_H_

#include <CLI/CLI.hpp>
#include <string>

#include "HelpCommand.h"

// Manual pages in the format of man(7), made of what --help shows.

// The page of the program, or of one of its commands.
std::string commandPage(const CLI::App& app);
std::string topicPage(const HelpTopic& topic);

// "tarq-dmr" or "tarq-dmr-check".
std::string pageName(const CLI::App& app);

#endif  // TARQ_DMR_MAN_PAGES_H_
