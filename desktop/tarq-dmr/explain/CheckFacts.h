#ifndef TARQ_DMR_CHECK_FACTS_H_
#define TARQ_DMR_CHECK_FACTS_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "TarqDmrParamsInterface.h"

struct Explanation;

// What a check decided and why, in short, for a program that makes many checks and counts them.

enum class CheckState { kPlays, kDependsOnServer, kDoesNotPlay };
inline constexpr CheckState kCheckStates[] = {CheckState::kPlays, CheckState::kDependsOnServer,
                                              CheckState::kDoesNotPlay};
const char* stateKey(CheckState state);    // "plays"
const char* stateWords(CheckState state);  // "depends on the server"

// Why no `res` plays. Resources with the same key have the same reason.
struct CheckReason {
  std::string key;
  std::string words;
};

// The one change that would let a `res` play.
struct CheckChange {
  std::string key;
  std::string words;   // "without its profile name"
  std::string value;   // what would be changed: a profile name, a MIME type; empty: nothing of the resource
  std::string format;  // what it would be played as; may be empty
};

struct CheckFacts {
  std::shared_ptr<const Explanation> explanation;
  CheckState state;
  std::string result;  // the object of `check --json`; without a code when it depends on a server
  std::string line;    // the choice on one line
  std::string kind;    // "photo", "music", "video" or "unknown"
  // What it is played as, or would be if the server agreed; else its MIME type; may be empty.
  std::string format;
  std::optional<CheckReason> reason;  // none: something is chosen, and the server did not refuse it
  std::optional<CheckChange> change;  // only with a reason
};

// Checks the resource. With `probe` the check may ask the server, otherwise none is asked and what the check would ask
// for depends on the server.
// Null: `metadata` may be null.
// Ownership: `uri` must outlive the explanation.
// Threads: several at once, when the plug-in's region is `region` already.
CheckFacts checkFacts(TarqDmrParamsInterface& params, const char* uri, const char* metadata, int32_t region,
                      bool probe);
CheckFacts factsOf(const std::shared_ptr<const Explanation>& explanation);

// What a page shows of it, as one object of limited size: the contest with its points, everything else in words.
std::string itemJson(const CheckFacts& facts);

#endif  // TARQ_DMR_CHECK_FACTS_H_
