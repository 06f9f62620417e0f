#ifndef TARQ_RENDERING_H_
#define TARQ_RENDERING_H_

#include <functional>
#include <mutex>
#include <string>

#include "TarqDmrPlayerInterface.h"

struct RenderingState {
  unsigned volume = 0;
  bool mute = false;
};

// Volume and mute of the player.
// Threads: one for all operations but `state`.
// Errors: ActionError.
class Rendering {
 public:
  static constexpr int kLoudest = 100;

  // `changed` is called after every change of what `state` returns.
  explicit Rendering(std::function<void()> changed) : changed_(std::move(changed)) {}

  void begin(
      TarqDmrPlayerInterface& player);  // before any other operation; remembers what `reset` returns to
  void reset();

  unsigned volume(const std::string& channel);
  bool mute(const std::string& channel);
  void setVolume(const std::string& channel, unsigned volume);
  void setMute(const std::string& channel, bool mute);

  // Returns: volume and mute of the Master channel, as last seen.
  // Threads: any.
  RenderingState state() const;

 private:
  void refresh();

  const std::function<void()> changed_;
  TarqDmrPlayerInterface* player_ = nullptr;
  RenderingState initial_;
  mutable std::mutex mutex_;
  RenderingState state_;  // under mutex_
};

#endif  // TARQ_RENDERING_H_
