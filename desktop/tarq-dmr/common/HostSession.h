#ifndef TARQ_DMR_HOST_SESSION_H_
#define TARQ_DMR_HOST_SESSION_H_

#include <array>
#include <cstring>
#include <memory>
#include <string>

#include "TarqDmrPluginManager.h"

// Which plug-in a command loads, and what it shows of the plug-in's log.
struct HostOptions {
  std::string pluginPath;           // empty: the one installed with this program
  std::string logLevel = "silent";  // one of kLogLevels
};
inline constexpr std::array kLogLevels = {"debug", "info", "warn", "error", "silent"};

// Sets the log up, for a program that loads no plug-in. `level`: one of kLogLevels.
// Errors: CommandError when it is none.
void setLogLevel(const std::string& level);

// Sets the log up and loads the plug-in, which stays loaded until the process ends. Call it once.
// Errors: CommandError when there is no such plug-in or when it lacks an export.
TarqDmrPluginManager& openHost(const HostOptions& options);

// A checker for the current region.
// Errors: std::bad_alloc when the plug-in has no memory for it.
std::unique_ptr<TarqResourceCheckerInterface> newChecker(TarqDmrParamsInterface& params);

// The plug-in has no result code for what this program lacks: the server seems to have failed. Call it before
// a result is shown.
// Errors: CommandError when a request of this process failed for lack of descriptors or memory.
void requireNoShortage();

// A string of the information record; one that fills its field has no NUL.
template <size_t N>
std::string recordString(const char (&field)[N]) {
  return {field, strnlen(field, N)};
}

#endif  // TARQ_DMR_HOST_SESSION_H_
