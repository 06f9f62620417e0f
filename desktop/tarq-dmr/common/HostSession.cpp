#include "HostSession.h"

#include <android/log.h>

#include <algorithm>
#include <filesystem>
#include <new>

#include "CommandError.h"
#include "InstalledFiles.h"
#include "TextOutput.h"
#include "VondHspClient.h"

namespace {

namespace fs = std::filesystem;

constexpr std::array kLogPriorities = {ANDROID_LOG_DEBUG, ANDROID_LOG_INFO, ANDROID_LOG_WARN,
                                       ANDROID_LOG_ERROR, ANDROID_LOG_SILENT};
static_assert(kLogPriorities.size() == kLogLevels.size());

// As liblog writes it, but one line that cannot control a terminal: much of it came from the network. The
// plug-in begins some records with an empty line.
void writeLogLine(const __android_logger_data* data, const char* message) {
  message += std::strspn(message, "\n");
  __android_log_stderr_logger(data, printable(message).c_str());
}

// A path with a "/" in it, so that the loader does not look for the library elsewhere.
fs::path pluginPath(const HostOptions& options) {
  if (!options.pluginPath.empty()) return fs::absolute(options.pluginPath);
  return installedFile("libtarq_dmr_plugin.so");
}

}  // namespace

void setLogLevel(const std::string& level) {
  const auto found = std::find(kLogLevels.begin(), kLogLevels.end(), level);
  if (found == kLogLevels.end()) throw CommandError("unknown log level: " + level);
  __android_log_set_logger(writeLogLine);
  __android_log_set_minimum_priority(kLogPriorities[static_cast<size_t>(found - kLogLevels.begin())]);
}

TarqDmrPluginManager& openHost(const HostOptions& options) {
  setLogLevel(options.logLevel);
  const fs::path path = pluginPath(options);
  TarqDmrPluginManager& manager = *TarqDmrPluginManager::GetInstance();
  if (manager.Load(path.c_str(), path.parent_path().c_str()) != 0) throw CommandError(manager.GetLoadError());
  return manager;
}

std::unique_ptr<TarqResourceCheckerInterface> newChecker(TarqDmrParamsInterface& params) {
  std::unique_ptr<TarqResourceCheckerInterface> checker(params.CreateResourceChecker());
  if (!checker) throw std::bad_alloc();
  return checker;
}

void requireNoShortage() {
  if (VondHspClient::GetNumOfShortages() > 0)
    throw CommandError(std::string("cannot ask a server: ") + VondHspErrorText(kVondHspNoResources));
}
