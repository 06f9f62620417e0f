#include "SourceCheck.h"

#include <strings.h>

#include <chrono>
#include <condition_variable>
#include <thread>

#include "HostSession.h"
#include "Metadata.h"
#include "UpnpCodes.h"
#include "VondURL.h"

namespace {

// Control points wait 5 s for an answer.
constexpr auto kLimit = std::chrono::seconds(4);

// Calls `expire` when the time is over before its own end.
class Deadline {
 public:
  template <class Expire>
  explicit Deadline(Expire expire)
      : thread_([this, expire](const std::stop_token& end) {
          std::unique_lock lock(mutex_);
          if (ended_.wait_for(lock, end, kLimit, [] { return false; }) || end.stop_requested()) return;
          expired_ = true;
          expire();
        }) {}

  bool expired() {
    thread_.request_stop();
    thread_.join();
    return expired_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable_any ended_;
  bool expired_ = false;
  std::jthread thread_;
};

void check(CheckedSource& source) {
  using std::chrono::steady_clock;
  const steady_clock::time_point begun = steady_clock::now();
  source.code = source.checker->CheckResource(source.uri.c_str(), source.didl.c_str());
  const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - begun);
  source.tookMs = static_cast<int>(took.count());
}

// Whatever the checker says: a player would open local files, too, for anyone on the network.
bool isForPlayers(const char* uri) {
  const std::unique_ptr<VondURL> url(VondURL::Parse(uri, nullptr));
  if (url == nullptr) return false;
  return strcasecmp(url->GetScheme(), "http") == 0 || strcasecmp(url->GetScheme(), "https") == 0;
}

}  // namespace

unsigned SourceCheck::ticket() const {
  const std::lock_guard lock(mutex_);
  return ticket_;
}

std::shared_ptr<const CheckedSource> SourceCheck::run(const std::string& uri, const std::string& metadata,
                                                      unsigned ticket) {
  const auto source = std::make_shared<CheckedSource>(
      CheckedSource{uri, metadata, unwrapMetadata(metadata).didl, newChecker(params_)});
  last_ = source;
  Deadline deadline([checker = source->checker.get()] { checker->Cancel(); });
  begin(*source->checker, ticket);
  check(*source);
  end();
  const bool expired = deadline.expired();
  if (source->code != kAccepted && expired) throw ActionError{716, "the server did not answer within 4 s"};
  if (source->code != kAccepted) throw errorOfCheck(source->code);
  if (!isForPlayers(source->resource().uri)) throw ActionError{714, "neither an http nor an https URI"};
  return source;
}

void SourceCheck::cancel() {
  const std::lock_guard lock(mutex_);
  ++ticket_;
  if (running_ != nullptr) running_->Cancel();
}

// A checker that is cancelled before it runs asks no server.
void SourceCheck::begin(TarqResourceCheckerInterface& checker, unsigned ticket) {
  const std::lock_guard lock(mutex_);
  running_ = &checker;
  if (ticket != ticket_) checker.Cancel();
}

void SourceCheck::end() {
  const std::lock_guard lock(mutex_);
  running_ = nullptr;
}
