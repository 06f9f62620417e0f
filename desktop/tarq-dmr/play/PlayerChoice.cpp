#include "PlayerChoice.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "CommandError.h"
#include "InstalledFiles.h"

namespace {

namespace fs = std::filesystem;

struct PlayerRow {
  std::string_view name;
  const char* handlerClass;
};

// The first is the default.
constexpr PlayerRow kPlayers[] = {
    {.name = "simulated", .handlerClass = "com.orsa.tarq.dlna.DesktopRendererHandler"},
    {.name = "mpv", .handlerClass = "com.orsa.tarq.dlna.MpvRendererHandler"},
};

std::string classOf(const PlayerChoice& choice) {
  if (choice.name.empty()) return kPlayers[0].handlerClass;
  const auto row = std::ranges::find(kPlayers, std::string_view(choice.name), &PlayerRow::name);
  return row == std::end(kPlayers) ? choice.name : row->handlerClass;
}

fs::path existing(const fs::path& file) {
  if (!fs::exists(file)) throw CommandError("there is no file " + file.string());
  return file;
}

}  // namespace

// The handler's own jar, if any, goes before the one with its base class.
std::vector<std::string> classPathOf(const PlayerChoice& choice) {
  std::vector<std::string> jars = {existing(installedFile("tarq-renderer.jar"))};
  if (!choice.jar.empty()) jars.insert(jars.begin(), existing(choice.jar));
  return jars;
}

std::unique_ptr<JavaHandler> newHandler(JNIEnv& env, const PlayerChoice& choice) {
  const std::string name = classOf(choice);
  auto handler = std::make_unique<JavaHandler>(env, name);
  if (!choice.program.empty() && !handler->setProgram(choice.program))
    throw CommandError("the handler " + name + " runs no programs");
  if (!handler->open(choice.mpvOptions) && !choice.mpvOptions.empty())
    throw CommandError("the handler " + name + " takes no options for mpv");
  if (const std::string reason = handler->failure(); !reason.empty()) throw CommandError(reason);
  return handler;
}
