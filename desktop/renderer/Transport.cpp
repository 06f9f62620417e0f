#include "Transport.h"

#include <cstdlib>
#include <utility>

#include "CommaList.h"
#include "DidlDuration.h"
#include "PlayProgress.h"
#include "UpnpCodes.h"

namespace {

constexpr unsigned kInstance = 0;

// A string that the player allocates; empty when it has none.
std::string playerString(TarqDmrPlayerInterface& player,
                         int (TarqDmrPlayerInterface::*operation)(unsigned, char**)) {
  char* found = nullptr;
  if ((player.*operation)(kInstance, &found) != kPlayerOk || found == nullptr) return {};
  const std::unique_ptr<char, void (*)(void*)> owner(found, std::free);
  return found;
}

TransportState stateOfPlayer(int state) {
  if (state == kStatePlaying) return TransportState::kPlaying;
  return state == kStatePaused ? TransportState::kPaused : TransportState::kStopped;
}

}  // namespace

Transport::Transport(TarqDmrParamsInterface& params, std::function<void()> changed)
    : check_(params), changed_(std::move(changed)) {}

void Transport::begin(TarqDmrPlayerInterface& player, JavaHandler& handler) {
  player_ = &player;
  handler_ = &handler;
  const std::string speeds = playerString(player, &TarqDmrPlayerInterface::GetPlaySpeedList);
  {
    const std::lock_guard lock(mutex_);
    if (!speeds.empty()) speeds_ = speeds;
  }
  publish(true);
}

void Transport::setSource(const std::string& uri, const std::string& metadata, unsigned checkTicket) {
  const bool wasPlaying = plays();
  if (uri.empty()) {
    stop();
    now_ = {};
    return publish(true);
  }
  const auto source = check_.run(uri, metadata, checkTicket);
  take(source);
  now_.seekPolls = 0;
  now_.failed = false;
  now_.next = nullptr;
  now_.state = TransportState::kStopped;
  readActions();
  publish(true);
  if (!wasPlaying) return;
  start("1");
  publish(true);
}

void Transport::setNextSource(const std::string& uri, const std::string& metadata, unsigned checkTicket) {
  const auto source = uri.empty() ? nullptr : check_.run(uri, metadata, checkTicket);
  setNext(source);
  readActions();
  publish(true);
}

void Transport::play(const std::string& speed) {
  if (now_.current == nullptr) throw ActionError{702};
  if (!isListed(speed, speeds_)) throw ActionError{717};
  if (plays() && speed == now_.speed) return;
  start(speed);
  publish(true);
}

void Transport::pause() {
  if (now_.state == TransportState::kTransitioning) poll();
  if (now_.state != TransportState::kPlaying) throw ActionError{701};
  requireDone(PlayerOperation::kPause, player_->Pause(kInstance));
  now_.state = TransportState::kPaused;
  readTimes();
  readActions();
  publish(true);
}

void Transport::stop() {
  if (now_.current == nullptr) return;
  requireDone(PlayerOperation::kOther, player_->Stop(kInstance));
  now_.state = TransportState::kStopped;
  now_.seekPolls = 0;
  now_.positionMs = 0;
  readActions();
  publish(true);
}

void Transport::seek(int targetMs) {
  if (!isActive()) throw ActionError{701};
  if (now_.durationMs != 0 && targetMs > now_.durationMs) throw ActionError{711};
  requireDone(PlayerOperation::kSeek, player_->SeekTo(kInstance, targetMs));
  now_.seekPolls = 2;
  now_.positionMs = targetMs;
  publish(true);
}

void Transport::next() {
  if (now_.next == nullptr) throw ActionError{711};
  requireDone(PlayerOperation::kOther, player_->Next(kInstance));
  moveToNext();
  if (isActive()) now_.state = TransportState::kTransitioning;
  publish(true);
}

void Transport::poll() {
  if (!isActive()) return;
  int playerState = 0;
  const bool known = player_->GetState(kInstance, &playerState) == kPlayerOk;
  const TransportState state = known ? stateOfPlayer(playerState) : TransportState::kStopped;
  state == TransportState::kStopped ? endTrack() : followTrack(state);
}

TransportSnapshot Transport::snapshot() const {
  const std::lock_guard lock(mutex_);
  return published_;
}

std::string Transport::playSpeeds() const {
  const std::lock_guard lock(mutex_);
  return speeds_;
}

bool Transport::plays() const {
  return now_.state == TransportState::kPlaying || now_.state == TransportState::kTransitioning;
}

bool Transport::isActive() const {
  return now_.state != TransportState::kNoMedia && now_.state != TransportState::kStopped;
}

void Transport::start(const std::string& speed) {
  requireDone(PlayerOperation::kPlay, player_->Start(kInstance, speed.c_str()));
  now_.state = TransportState::kTransitioning;
  now_.speed = speed;
  now_.failed = false;
  readActions();
}

void Transport::take(std::shared_ptr<const CheckedSource> source) {
  const TarqResourceInfo& resource = source->resource();
  requireDone(PlayerOperation::kSetSource,
              player_->SetDataSource(kInstance, resource.uri, source->metadata.c_str(), resource.mimeType));
  track_ = 1;
  makeCurrent(std::move(source));
}

void Transport::makeCurrent(std::shared_ptr<const CheckedSource> source) {
  now_.current = std::move(source);
  now_.positionMs = 0;
  now_.durationMs = parseDurationMs(now_.current->resource().duration);
  handler_->setTrackDuration(now_.durationMs);
}

void Transport::setNext(std::shared_ptr<const CheckedSource> source) {
  if (source == nullptr) {
    player_->SetNextDataSource(kInstance, "", nullptr, "");
  } else {
    const TarqResourceInfo& resource = source->resource();
    const char* type = resource.mimeType == nullptr ? "" : resource.mimeType;
    requireDone(PlayerOperation::kSetSource,
                player_->SetNextDataSource(kInstance, resource.uri, source->metadata.c_str(), type));
  }
  now_.next = std::move(source);
}

void Transport::moveToNext() {
  ++track_;
  makeCurrent(std::exchange(now_.next, nullptr));
  readActions();
}

void Transport::followTrack(TransportState state) {
  const TransportSnapshot before = now_;
  readTimes();
  if (now_.seekPolls > 0) --now_.seekPolls;
  const bool movedOn = now_.next != nullptr && handler_->currentTrack() > track_;
  if (movedOn) moveToNext();
  now_.state = state;
  const bool isNew = movedOn || before.seekPolls != now_.seekPolls || before.state != state ||
                     before.durationMs != now_.durationMs;
  if (isNew) readActions();
  publish(isNew);
}

// A handler that could not go on to the next source by itself is given it now.
void Transport::endTrack() {
  now_.seekPolls = 0;
  now_.failed = !handler_->failure().empty();
  now_.positionMs = 0;
  now_.state = TransportState::kStopped;
  if (!now_.failed && now_.next != nullptr) {
    try {
      take(std::exchange(now_.next, nullptr));
      start("1");
    } catch (const ActionError&) {
      now_.failed = true;
    }
  }
  readActions();
  publish(true);
}

void Transport::readTimes() {
  int value = 0;
  if (player_->GetCurrentPosition(kInstance, &value) == kPlayerOk) now_.positionMs = value;
  if (player_->GetTrackDuration(kInstance, &value) == kPlayerOk && value > 0) now_.durationMs = value;
}

void Transport::readActions() { now_.actions = playerString(*player_, &TarqDmrPlayerInterface::GetAction); }

void Transport::publish(bool worthTelling) {
  {
    const std::lock_guard lock(mutex_);
    published_ = now_;
  }
  if (worthTelling) changed_();
}
