#ifndef TARQ_DMR_PLAYER_SESSION_H_
#define TARQ_DMR_PLAYER_SESSION_H_

#include <string>

#include "JavaHandler.h"
#include "JavaVm.h"
#include "PlayProgress.h"
#include "TarqDmrPlayerInterface.h"
#include "TarqResourceCheckerInterface.h"

// An operation that the player did not answer with success.
struct PlayerFailure {
  const char* operation;
  int code;
};
const char* describePlayerResult(int code);

// The plug-in's player with a Java VM and a handler behind it, as long as this lives.
// Threads: one, from beginning to end. Every operation throws PlayerFailure.
class PlayerSession {
 public:
  // Both texts may be empty: no jar but the one that is installed with this program, and its desktop handler.
  // Throws CommandError when there is no Java VM, no such handler, or the player does not take it.
  PlayerSession(TarqDmrPlayerInterface& player, const std::string& handlerJar,
                const std::string& handlerClass);
  ~PlayerSession();
  PlayerSession(const PlayerSession&) = delete;
  PlayerSession& operator=(const PlayerSession&) = delete;

  JavaHandler& handler() { return handler_; }

  // What a check found, with its duration where the handler wants to know. `metadata` may be null.
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
