#include "PlayerSession.h"

#include "CommandError.h"
#include "DidlDuration.h"
#include "TarqJniUtil.h"

namespace {

constexpr unsigned int kTransport = 0;

const char* describeResult(int code) {
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

}  // namespace

PlayerSession::PlayerSession(TarqDmrPlayerInterface& player, const PlayerChoice& choice)
    : vm_(classPathOf(choice)), handler_(newHandler(vm_.env(), choice)), player_(player) {
  if (player.AddCb(&vm_.env(), handler_->object()) != kPlayerOk) {
    throw CommandError("the player did not accept the handler");
  }
}

PlayerSession::~PlayerSession() { player_.RemoveCb(&vm_.env()); }

void PlayerSession::setSource(const TarqResourceInfo& resource, const char* metadata) {
  sources_ = {&resource, nullptr};
  track_ = 1;
  require("SetDataSource", player_.SetDataSource(kTransport, resource.uri, metadata, resource.mimeType),
          resource.uri);
  handler_->setTrackDuration(parseDurationMs(resource.duration));
}

void PlayerSession::setNextSource(const TarqResourceInfo& resource, const char* metadata) {
  sources_[1] = &resource;
  require("SetNextDataSource",
          player_.SetNextDataSource(kTransport, resource.uri, metadata, resource.mimeType), resource.uri);
}

void PlayerSession::start() { require("Start", player_.Start(kTransport, "1"), uri()); }

void PlayerSession::stop() { require("Stop", player_.Stop(kTransport), uri()); }

PlayMoment PlayerSession::moment() {
  PlayMoment moment{};
  require("GetState", player_.GetState(kTransport, &moment.state), uri());
  followTrack();
  moment.track = static_cast<int>(track_);
  require("GetCurrentPosition", player_.GetCurrentPosition(kTransport, &moment.positionMs), uri());
  require("GetTrackDuration", player_.GetTrackDuration(kTransport, &moment.durationMs), uri());
  return moment;
}

void PlayerSession::throwFailure() {
  const std::string reason = handler_->failure();
  if (!reason.empty()) throw PlayerFailure{"playing failed: " + reason, uri()};
}

void PlayerSession::killPrograms() {
  int attached = 0;
  JNIEnv* env = TarqJniUtil::GetJNIEnv(&attached);
  if (env == nullptr) return;
  const jclass programs = env->FindClass("com/orsa/tarq/dlna/ExternalProgram");
  env->CallStaticVoidMethod(programs, env->GetStaticMethodID(programs, "killAll", "()V"));
  env->ExceptionClear();
  env->DeleteLocalRef(programs);
  if (attached != 0) TarqJniUtil::DetachVM();
}

void PlayerSession::require(const char* operation, int code, const char* uri) {
  if (code == kPlayerOk) return;
  const std::string reason = handler_->failure();
  const std::string failed = std::string(operation) + " failed (" + std::to_string(code) + "): ";
  throw PlayerFailure{failed + (reason.empty() ? describeResult(code) : reason), uri};
}

// The handler goes on to the next track by itself, without knowing its duration.
void PlayerSession::followTrack() {
  if (track_ == 2 || sources_[1] == nullptr || handler_->currentTrack() < 2) return;
  track_ = 2;
  handler_->setTrackDuration(parseDurationMs(sources_[1]->duration));
}
