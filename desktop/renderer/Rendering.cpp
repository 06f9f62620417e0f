#include "Rendering.h"

#include "UpnpCodes.h"

namespace {

constexpr unsigned kInstance = 0;
constexpr const char* kMaster = "Master";

}  // namespace

void Rendering::begin(TarqDmrPlayerInterface& player) {
  player_ = &player;
  refresh();
  initial_ = state();
}

void Rendering::reset() {
  setVolume(kMaster, initial_.volume);
  setMute(kMaster, initial_.mute);
}

unsigned Rendering::volume(const std::string& channel) {
  unsigned volume = 0;
  requireDone(PlayerOperation::kOther, player_->GetVolume(kInstance, channel.c_str(), 0, &volume));
  return volume;
}

bool Rendering::mute(const std::string& channel) {
  bool mute = false;
  requireDone(PlayerOperation::kOther, player_->GetMute(kInstance, channel.c_str(), mute));
  return mute;
}

void Rendering::setVolume(const std::string& channel, unsigned volume) {
  requireDone(PlayerOperation::kSetVolume, player_->SetVolume(kInstance, channel.c_str(), volume, 0));
  refresh();
}

void Rendering::setMute(const std::string& channel, bool mute) {
  requireDone(PlayerOperation::kOther, player_->SetMute(kInstance, channel.c_str(), mute));
  refresh();
}

RenderingState Rendering::state() const {
  const std::lock_guard lock(mutex_);
  return state_;
}

void Rendering::refresh() {
  const RenderingState now{volume(kMaster), mute(kMaster)};
  {
    const std::lock_guard lock(mutex_);
    state_ = now;
  }
  changed_();
}
