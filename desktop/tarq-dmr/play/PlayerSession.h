#ifndef TARQ_DMR_PLAYER_SESSION_H_
#define TARQ_DMR_PLAYER_SESSION_H_

#include <array>
#include <memory>
#include <string>

#include "JavaVm.h"
#include "PlayProgress.h"
#include "PlayerChoice.h"
#include "TarqDmrPlayerInterface.h"
#include "TarqResourceCheckerInterface.h"

// The player, or the program that plays for it, failed.
struct PlayerFailure {
  std::string words;  // "Start failed (10): invalid state"
  std::string uri;    // what it was about
};

// The plug-in's player, connected to a handler in a Java VM while this exists.
// Threads: one for all operations.
// Errors: every operation throws PlayerFailure.
class PlayerSession {
 public:
  // Errors: CommandError when there is no Java VM or no such handler, or the player does not accept it.
  PlayerSession(TarqDmrPlayerInterface& player, const PlayerChoice& choice);
  ~PlayerSession();
  PlayerSession(const PlayerSession&) = delete;
  PlayerSession& operator=(const PlayerSession&) = delete;

  JavaHandler& handler() { return *handler_; }

  // Passes on what a check found.
  // Null: `metadata` may be null.
  // Ownership: `resource` must outlive this.
  void setSource(const TarqResourceInfo& resource, const char* metadata);
  void setNextSource(const TarqResourceInfo& resource, const char* metadata);
  void start();
  void stop();
  PlayMoment moment();

  const char* uri() const { return sources_[track_ - 1]->uri; }  // of the current track
  void throwFailure();  // when the track ended because it could not be played; otherwise nothing happens

  // Ends all programs that the handler has started, even while an operation waits for them.
  // Threads: any.
  static void killPrograms();

 private:
  void require(const char* operation, int code, const char* uri);
  void followTrack();

  JavaVm vm_;
  std::unique_ptr<JavaHandler> handler_;
  TarqDmrPlayerInterface& player_;
  std::array<const TarqResourceInfo*, 2> sources_{};
  size_t track_ = 1;  // the current one, from 1
};

#endif  // TARQ_DMR_PLAYER_SESSION_H_
