#include "PlayCommand.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <thread>

#include "CommandError.h"
#include "InputFile.h"
#include "PlayProgress.h"
#include "PlayerSession.h"
#include "ResultText.h"

namespace {

constexpr auto kPollInterval = std::chrono::milliseconds(100);

std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler sets it");

// While it exists, the first SIGINT or SIGTERM asks the track to stop; the second ends the program.
class InterruptWatch {
 public:
  InterruptWatch() {
    struct sigaction watch {};
    watch.sa_handler = [](int) { interrupted = true; };
    watch.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(SIGINT, &watch, &previousInt_);
    sigaction(SIGTERM, &watch, &previousTerm_);
  }
  ~InterruptWatch() {
    sigaction(SIGINT, &previousInt_, nullptr);
    sigaction(SIGTERM, &previousTerm_, nullptr);
  }
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

 private:
  struct sigaction previousInt_;
  struct sigaction previousTerm_;
};

// Ends the command: a source is refused.
struct Refusal {
  int code;
};

using Checker = std::unique_ptr<TarqResourceCheckerInterface>;

// Returns: the checker, which holds what to play.
Checker checkSource(TarqDmrParamsInterface& params, const std::string& uri, const char* metadata) {
  Checker checker = newChecker(params);
  const int code = checker->CheckResource(uri.c_str(), metadata);
  requireNoShortage();
  if (code != kAccepted) throw Refusal{code};
  return checker;
}

// Shows the track until it is over or interrupted, then how it ended.
void follow(PlayerSession& session) {
  const char* outcome = "the track is over";
  {
    PlayProgress progress;
    for (PlayMoment moment = session.moment(); moment.state != kStateStopped; moment = session.moment()) {
      progress.show(moment);
      if (interrupted || std::ferror(stdout) != 0) {
        session.stop();
        outcome = "stopped";
        break;
      }
      std::this_thread::sleep_for(kPollInterval);
    }
  }
  std::puts(outcome);
}

// `next`: null for none.
void play(TarqDmrPlayerInterface& player, const PlayOptions& options, const TarqResourceInfo& resource,
          const char* metadata, const TarqResourceInfo* next) {
  PlayerSession session(player, options.handlerJar, options.handlerClass);
  if (!options.program.empty() && !session.handler().setProgram(options.program)) {
    throw CommandError("the handler " + options.handlerClass + " runs no programs");
  }
  const InterruptWatch watch;
  session.setSource(resource, metadata);
  if (next != nullptr) session.setNextSource(*next);
  session.start();
  follow(session);
}

}  // namespace

int runPlay(const PlayOptions& options) {
  std::optional<std::string> file;
  if (options.metadataFile) file = readMetadata(*options.metadataFile);
  const char* metadata = file ? file->c_str() : nullptr;
  TarqDmrPluginManager& host = openHost(options.host);
  TarqDmrParamsInterface& params = *host.GetParams();
  params.SetCurrentRegion(options.region);
  try {
    const Checker source = checkSource(params, options.uri, metadata);
    const Checker next = options.nextUri ? checkSource(params, *options.nextUri, nullptr) : nullptr;
    play(*host.GetPlayer(), options, *source->GetResource(), metadata, next ? next->GetResource() : nullptr);
    return kExitOk;
  } catch (const Refusal& refusal) {
    std::printf("refused (%d): %s\n", refusal.code, describe(refusal.code));
  } catch (const PlayerFailure& failure) {
    std::printf("%s failed (%d): %s\n", failure.operation, failure.code, describePlayerResult(failure.code));
  }
  return kExitRefused;
}
