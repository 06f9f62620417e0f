#ifndef TARQ_DMR_PLAYER_CHOICE_H_
#define TARQ_DMR_PLAYER_CHOICE_H_

#include <memory>
#include <string>
#include <vector>

#include "JavaHandler.h"

// Which Java handler plays, as a user says it.
struct PlayerChoice {
  std::string name;                     // "simulated", "mpv" or a Java class; empty: "simulated"
  std::string jar;                      // with that class; empty: only the one installed with this program
  std::string program;                  // that plays for the simulated one; empty: none, nothing is heard
  std::vector<std::string> mpvOptions;  // more of mpv's command line
};

// For the VM in which the handler is created.
// Errors: CommandError when a jar does not exist.
std::vector<std::string> classPathOf(const PlayerChoice& choice);

// Returns: the handler, ready to play.
// Threads: it is for the thread of `env`.
// Errors: CommandError when there is no such class, when it takes no program or no options, or when mpv does
//   not start.
std::unique_ptr<JavaHandler> newHandler(JNIEnv& env, const PlayerChoice& choice);

#endif  // TARQ_DMR_PLAYER_CHOICE_H_
