#ifndef TARQ_DMR_SHARED_OPTIONS_H_
#define TARQ_DMR_SHARED_OPTIONS_H_

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "HostSession.h"

// The options that several commands have. The variables must outlive the parsing.

using OptionalFile = std::optional<std::string>;

// --plugin and --log. Log lines below `logLevel` are hidden unless --log says otherwise.
void addHostOptions(CLI::App& command, HostOptions& host, const char* logLevel);

void addRegion(CLI::App& command, int32_t& region);
void addJson(CLI::App& command, bool& json, const char* description);

CLI::Option* addUri(CLI::App& command, std::string& uri);
CLI::Option* addMetadata(CLI::App& command, OptionalFile& file);

// The URI and --metadata, or --batch instead of both.
// Returns: --batch.
CLI::Option* addUriOrBatch(CLI::App& command, std::string& uri, OptionalFile& metadata, OptionalFile& batch,
                           const char* batchDescription);

#endif  // TARQ_DMR_SHARED_OPTIONS_H_
