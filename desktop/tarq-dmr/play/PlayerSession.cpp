#include "PlayerSession.h"

#include "CommandError.h"
#include "DidlDuration.h"

namespace {

constexpr unsigned int kTransport = 0;

void require(const char* operation, int code) {
  if (code != kPlayerOk) throw PlayerFailure{operation, code};
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

PlayerSession::PlayerSession(TarqDmrPlayerInterface& player, const PlayerChoice& choice)
    : vm_(classPathOf(choice)), handler_(newHandler(vm_.env(), choice)), player_(player) {
  if (player.AddCb(&vm_.env(), handler_->object()) != kPlayerOk) {
    throw CommandError("the player did not accept the handler");
  }
}

PlayerSession::~PlayerSession() { player_.RemoveCb(&vm_.env()); }

void PlayerSession::setSource(const TarqResourceInfo& resource, const char* metadata) {
  require("SetDataSource", player_.SetDataSource(kTransport, resource.uri, metadata, resource.mimeType));
  handler_->setTrackDuration(parseDurationMs(resource.duration));
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
