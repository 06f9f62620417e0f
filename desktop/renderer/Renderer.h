#ifndef TARQ_RENDERER_H_
#define TARQ_RENDERER_H_

#include "RendererOptions.h"

// A media renderer on the network made of the plug-in's answers. This library is loaded when the command is given,
// so that other commands need neither GUPnP nor the time to load it.

// Runs until SIGINT, SIGTERM or SIGHUP.
// Returns: an exit code.
// Errors: CommandError when it cannot start.
extern "C" __attribute__((visibility("default"))) int runTarqRenderer(const RendererOptions& options);

using RunTarqRenderer = decltype(&runTarqRenderer);
inline constexpr const char* kRunTarqRenderer = "runTarqRenderer";

#endif  // TARQ_RENDERER_H_
