#ifndef TARQ_DMR_SHARED_OPTIONS_H_
#define TARQ_DMR_SHARED_OPTIONS_H_

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "LibraryOptions.h"
#include "PlayerChoice.h"
#include "RendererOptions.h"
#include "ResourceOptions.h"

// The options that several commands have. The variables must outlive the parsing.

using OptionalFile = std::optional<std::string>;

CLI::Validator notEmpty();

void addHostOptions(CLI::App& command, HostOptions& host);  // --plugin and --log

void addRegion(CLI::App& command, int32_t& region);
void addJson(CLI::App& command, bool& json, const char* description);
void addHtml(CLI::App& command, OptionalFile& file);

CLI::Option* addUri(CLI::App& command, std::string& uri);
CLI::Option* addMetadata(CLI::App& command, OptionalFile& file);

// --player and what belongs to it. `usual`: who plays when it is not given.
void addPlayer(CLI::App& command, PlayerChoice& player, const char* usual);

// The URI and --metadata, or --batch instead of both; --jobs, --summary, --json and --region.
void addResourceOptions(CLI::App& command, ResourceOptions& options, const char* batchDescription);

void addRendererOptions(CLI::App& command, RendererOptions& options);

void addInterface(CLI::App& command, std::string& name, const char* usual);
void addSurveyOptions(CLI::App& command, SurveyOptions& options);

#endif  // TARQ_DMR_SHARED_OPTIONS_H_
