#ifndef TARQ_SOURCE_CHECK_H_
#define TARQ_SOURCE_CHECK_H_

#include <memory>
#include <mutex>
#include <string>

#include "TarqDmrParamsInterface.h"

// A source and what the plug-in's checker found.
struct CheckedSource {
  std::string uri;       // as the control point set it
  std::string metadata;  // the same
  std::string didl;      // the metadata without the escapes that some control points add
  std::unique_ptr<TarqResourceCheckerInterface> checker;
  int code = kAccepted;  // of the check
  int tookMs = 0;

  const TarqResourceInfo& resource() const { return *checker->GetResource(); }
};

// Checks sources, for no longer than a control point waits.
// Threads: one for all but `cancel`.
class SourceCheck {
 public:
  explicit SourceCheck(TarqDmrParamsInterface& params) : params_(params) {}

  // Which checks are still wanted: a check that was asked for before `cancel` is not.
  // Threads: any.
  unsigned ticket() const;

  // Returns: never null.
  // Errors: ActionError when the source is refused, takes too long, is not for a player of http and https, or is
  //   not wanted any more.
  std::shared_ptr<const CheckedSource> run(const std::string& uri, const std::string& metadata,
                                           unsigned ticket);

  // Returns: what `run` checked last, accepted or not; null before that.
  std::shared_ptr<const CheckedSource> last() const { return last_; }

  // Ends the check that is running, if any, and those that were asked for; `run` throws at once.
  // Threads: any.
  void cancel();

 private:
  void begin(TarqResourceCheckerInterface& checker, unsigned ticket);
  void end();

  TarqDmrParamsInterface& params_;
  std::shared_ptr<const CheckedSource> last_;
  mutable std::mutex mutex_;  // of both below
  unsigned ticket_ = 0;       // of the checks that are wanted
  TarqResourceCheckerInterface* running_ = nullptr;
};

#endif  // TARQ_SOURCE_CHECK_H_
