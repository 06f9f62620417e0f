#ifndef TARQ_DMR_PLAYER_SESSION_H_
#define TARQ_DMR_PLAYER_SESSION_H_

#include <memory>
#include <optional>
#include <string>

#include "JavaVm.h"
#include "PlayProgress.h"
#include "PlayerChoice.h"
#include "TarqDmrPlayerInterface.h"
#include "TarqResourceCheckerInterface.h"

// An operation of the player that failed.
struct PlayerFailure {
  const char* operation;
  int code;
};
const char* describePlayerResult(int code);

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

  // Passes on what a check found.
  // Null: `metadata` may be null.
  void setSource(const TarqResourceInfo& resource, const char* metadata);
  void setNextSource(const TarqResourceInfo& resource);
  void start();
  void stop();
  PlayMoment moment();
  std::optional<std::string> failure() { return handler_->failure(); }

 private:
  JavaVm vm_;
  std::unique_ptr<JavaHandler> handler_;
  TarqDmrPlayerInterface& player_;
};

#endif  // TARQ_DMR_PLAYER_SESSION_H_
