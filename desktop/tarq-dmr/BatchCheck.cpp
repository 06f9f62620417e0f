#include <new>
#include <vector>

#include "BatchInput.h"
#include "BatchLine.h"
#include "BatchOutput.h"
#include "Commands.h"
#include "HostSession.h"
#include "JsonText.h"
#include "OrderedWorkers.h"
#include "ResultText.h"

namespace {

// Answers line after line: takes the complete lines that are there, checks them, writes the answers, and only
// then waits for more input.
class BatchRun {
 public:
  BatchRun(TarqDmrParamsInterface& params, const BatchOptions& options)
      : params_(params),
        defaultRegion_(options.region),
        input_(options.file),
        items_(kMaxItems),
        workers_(
            options.jobs, kMaxItems, [this](size_t i) { answer(items_[i]); },
            [this](size_t i) { output_.addLine(items_[i].answer.text()); }) {}

  void run();

 private:
  static constexpr size_t kMaxItems = 512;

  struct Item {
    BatchRequest request;
    JsonText answer;
  };

  bool collect();
  void answerCollected();
  void answer(Item& item) noexcept;
  void check(Item& item);

  TarqDmrParamsInterface& params_;
  const int32_t defaultRegion_;
  BatchInput input_;
  BatchOutput output_;
  std::vector<Item> items_;
  size_t count_ = 0;  // of the items collected
  OrderedWorkers workers_;
};

void BatchRun::run() {
  while (input_.fill()) {
    while (collect()) answerCollected();
    output_.flush();
  }
}

bool BatchRun::collect() {
  for (count_ = 0; count_ < kMaxItems; ++count_) {
    const auto line = input_.nextLine();
    if (!line) break;
    BatchRequest& request = items_[count_].request;
    request = parseBatchLine(*line, defaultRegion_);
    // A line without a check goes with its neighbours.
    if (request.problem != nullptr)
      request.region = count_ == 0 ? defaultRegion_ : items_[count_ - 1].request.region;
  }
  return count_ > 0;
}

// The region belongs to the whole process: checks at once are checks of one region.
void BatchRun::answerCollected() {
  for (size_t begin = 0, end; begin < count_; begin = end) {
    const int32_t region = items_[begin].request.region;
    for (end = begin + 1; end < count_ && items_[end].request.region == region;) ++end;
    params_.SetCurrentRegion(region);
    workers_.run(begin, end);
  }
}

void BatchRun::answer(Item& item) noexcept {
  item.answer.clear();
  if (item.request.problem != nullptr) {
    writeRefused(item.answer, kInvalidLine, item.request.problem);
    return;
  }
  try {
    check(item);
  } catch (const std::bad_alloc&) {
    item.answer.clear();
    writeRefused(item.answer, kInvalidLine, "not enough memory for the check");
  }
}

void BatchRun::check(Item& item) {
  const auto checker = newChecker(params_);
  const int code = checker->CheckResource(item.request.uri, item.request.metadata);
  if (code == 0) {
    writeAccepted(item.answer, *checker->GetResource());
  } else {
    writeRefused(item.answer, code, describe(code));
  }
}

// The first selection of the process fills tables that all others read, so it ends before any other starts.
// Without a URL nobody is asked.
void holdFirstSelection(TarqDmrParamsInterface& params) {
  newChecker(params)->CheckResource(
      nullptr, "<DIDL-Lite><item><res protocolInfo='http-get:*:audio/mpeg:*'>a</res></item></DIDL-Lite>");
}

}  // namespace

int runBatch(const BatchOptions& options) {
  TarqDmrParamsInterface& params = *openHost(options.host).GetParams();
  if (options.jobs > 1) holdFirstSelection(params);
  BatchRun(params, options).run();
  return kExitOk;
}
