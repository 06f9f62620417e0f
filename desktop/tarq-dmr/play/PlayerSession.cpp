#include "PlayerSession.h"

#include <filesystem>
#include <vector>

#include "CommandError.h"
#include "DidlDuration.h"

namespace {

namespace fs = std::filesystem;

constexpr unsigned int kTransport = 0;
constexpr const char* kDesktopHandler = "com.orsa.tarq.dlna.DesktopRendererHandler";

void require(const char* operation, int code) {
  if (code != kPlayerOk) throw PlayerFailure{operation, code};
}

fs::path existing(const fs::path& file) {
  if (!fs::exists(file)) throw CommandError("there is no file " + file.string());
  return file;
}

// The handler's own jar, if any, goes before the one with its base class.
std::vector<std::string> classPath(const std::string& handlerJar) {
  const fs::path binFolder = fs::read_symlink("/proc/self/exe").parent_path();
  std::vector<std::string> jars = {existing(binFolder / "../lib/tarq-renderer.jar")};
  if (!handlerJar.empty()) jars.insert(jars.begin(), existing(handlerJar));
  return jars;
}

}  // namespace

const char* describePlayerResult(int code) {
  switch (code) {
    case kPlayerNoEnvironment:
      return "no Java environment";
    case kPlayerNotSupported:
      return "not supported";
    case kPlayerHandlerLookupFailed:
      return "the handler has no such method";
    case kPlayerOutOfMemory:
      return "out of memory";
    case kPlayerInvalidArgument:
      return "invalid argument";
    case kPlayerInvalidState:
      return "invalid state";
    default:
      return "a code that the handler defines";
  }
}

PlayerSession::PlayerSession(TarqDmrPlayerInterface& player, const std::string& handlerJar,
                             const std::string& handlerClass)
    : vm_(classPath(handlerJar)),
      handler_(vm_.env(), handlerClass.empty() ? kDesktopHandler : handlerClass),
      player_(player) {
  if (player.AddCb(&vm_.env(), handler_.object()) != kPlayerOk) {
    throw CommandError("the player did not accept the handler");
  }
}

PlayerSession::~PlayerSession() { player_.RemoveCb(&vm_.env()); }

void PlayerSession::setSource(const TarqResourceInfo& resource, const char* metadata) {
  require("SetDataSource", player_.SetDataSource(kTransport, resource.uri, metadata, resource.mimeType));
  handler_.setTrackDuration(parseDurationMs(resource.duration));
}

void PlayerSession::setNextSource(const TarqResourceInfo& resource) {
  require("SetNextDataSource",
          player_.SetNextDataSource(kTransport, resource.uri, nullptr, resource.mimeType));
}

void PlayerSession::start() { require("Start", player_.Start(kTransport, "1")); }

void PlayerSession::stop() { require("Stop", player_.Stop(kTransport)); }

PlayMoment PlayerSession::moment() {
  PlayMoment moment{};
  require("GetState", player_.GetState(kTransport, &moment.state));
  require("GetCurrentPosition", player_.GetCurrentPosition(kTransport, &moment.positionMs));
  require("GetTrackDuration", player_.GetTrackDuration(kTransport, &moment.durationMs));
  return moment;
}
