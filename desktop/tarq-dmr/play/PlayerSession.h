#ifndef TARQ_DMR_PLAYER_SESSION_H_
#define TARQ_DMR_PLAYER_SESSION_H_

#include <string>

#include "JavaHandler.h"
#include "JavaVm.h"
#include "PlayProgress.h"
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
  // Both strings may be empty: only the jar installed with this program, and its desktop handler.
  // Errors: CommandError when there is no Java VM or no such handler, or the player does not accept it.
  PlayerSession(TarqDmrPlayerInterface& player, const std::string& handlerJar,
                const std::string& handlerClass);
  ~PlayerSession();
  PlayerSession(const PlayerSession&) = delete;
  PlayerSession& operator=(const PlayerSession&) = delete;

  JavaHandler& handler() { return handler_; }

  // Passes on what a check found.
  // Null: `metadata` may be null.
  void setSource(const TarqResourceInfo& resource, const char* metadata);
  void setNextSource(const TarqResourceInfo& resource);
  void start();
  void stop();
  PlayMoment moment();

 private:
  JavaVm vm_;
  JavaHandler handler_;
  TarqDmrPlayerInterface& player_;
};

#endif  // TARQ_DMR_PLAYER_SESSION_H_
