#include "Survey.h"

#include <atomic>
#include <exception>
#include <thread>

#include "CommandError.h"
#include "ItemQueue.h"
#include "JobLimit.h"
#include "LibraryBrowser.h"
#include "OrderedWorkers.h"
#include "ServerSearch.h"
#include "SignalThread.h"
#include "SurveyOutput.h"

namespace {

class SurveyRun : public LibraryReader {
 public:
  SurveyRun(TarqDmrParamsInterface& params, const SurveyOptions& options, HttpClient& http,
            const ServerDescription& server)
      : params_(params),
        options_(options),
        http_(http),
        server_(server),
        output_(options, server),
        signals_([this](int signal) { output_.interrupt(signal); }),
        workers_(
            jobsThatFit(options.jobs), kMaxItems, [this](size_t i) { check(items_[i]); }, [](size_t) {}) {}

  int run();

 private:
  static constexpr size_t kMaxItems = 64;

  void enter(const LibraryContainer& container) override { output_.enter(container.title); }
  bool take(LibraryItem item) override;
  void note(const LibraryContainer& container, const std::string& words) override {
    output_.note(container.title, words);
  }

  void browse() noexcept;
  void checkAll();
  void checkTaken(std::vector<LibraryItem> taken);
  void check(SurveyedItem& item) noexcept;

  TarqDmrParamsInterface& params_;
  const SurveyOptions& options_;
  HttpClient& http_;
  const ServerDescription& server_;
  SurveyOutput output_;
  SignalThread signals_;  // before the other threads, which must not take the signals
  ItemQueue queue_;
  int64_t taken_ = 0;  // by the thread that browses
  std::exception_ptr failure_;
  int32_t region_ = 0;
  std::vector<SurveyedItem> items_;
  std::atomic<bool> lacksMemory_ = false;
  OrderedWorkers workers_;
};

int SurveyRun::run() {
  std::thread browser([this] { browse(); });
  std::exception_ptr checking;
  try {
    checkAll();
  } catch (...) {
    checking = std::current_exception();
    queue_.close();
    http_.stop();
  }
  browser.join();
  for (const std::exception_ptr& each : {checking, failure_})
    if (each != nullptr) std::rethrow_exception(each);
  output_.end(taken_ == options_.limit ? SurveyEnd::kLimit : SurveyEnd::kComplete);
  return output_.readNothing() ? kExitRefused : kExitOk;
}

void SurveyRun::browse() noexcept {
  try {
    ContentDirectory directory(http_, server_);
    const bool isRoot = options_.container == "0";
    LibraryBrowser(directory, *this).run({options_.container, isRoot ? server_.name : options_.container});
  } catch (...) {
    failure_ = std::current_exception();
  }
  queue_.finish();
}

bool SurveyRun::take(LibraryItem item) { return queue_.put(std::move(item)) && ++taken_ != options_.limit; }

void SurveyRun::checkAll() {
  for (auto taken = queue_.take(kMaxItems); !taken.empty(); taken = queue_.take(kMaxItems))
    checkTaken(std::move(taken));
}

// The region belongs to the whole plug-in: what is checked at once is of one region.
void SurveyRun::checkTaken(std::vector<LibraryItem> taken) {
  items_.clear();
  for (LibraryItem& item : taken) items_.push_back({std::move(item), {}, {}});
  for (const int32_t region : options_.regions) {
    params_.SetCurrentRegion(region_ = region);
    workers_.run(0, items_.size());
  }
  if (lacksMemory_) throw std::bad_alloc();
  requireNoShortage();
  for (const SurveyedItem& item : items_) output_.add(item);
}

void SurveyRun::check(SurveyedItem& item) noexcept {
  try {
    if (item.facts.empty()) readItem(item.item);
    CheckFacts facts =
        checkFacts(params_, item.item.uri.c_str(), item.item.didl.c_str(), region_, options_.probe);
    if (facts.kind == "unknown") facts.kind = item.item.kind;
    if (options_.htmlFile) item.pageItems.push_back(itemJson(facts));
    item.facts.push_back(std::move(facts));
  } catch (const std::bad_alloc&) {
    lacksMemory_ = true;
  }
}

}  // namespace

int runSurvey(const SurveyOptions& options) {
  TarqDmrParamsInterface& params = *openHost(options.host).GetParams();
  HttpClient http;
  const ServerDescription server = describeServer(http, findServer(options.server, options.interfaceName));
  return SurveyRun(params, options, http, server).run();
}
