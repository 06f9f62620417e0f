#include "BatchRun.h"

#include <new>
#include <optional>
#include <utility>
#include <vector>

#include "BatchInput.h"
#include "BatchOutput.h"
#include "HostSession.h"
#include "JobLimit.h"
#include "OrderedWorkers.h"
#include "SignalThread.h"

namespace {

BatchResults resultsOf(const ResourceOptions& options) {
  if (!options.summary) return BatchResults::kLines;
  return options.json ? BatchResults::kSummaryJson : BatchResults::kSummaryText;
}

class BatchRun {
 public:
  BatchRun(TarqDmrParamsInterface& params, const ResourceOptions& options, const BatchAnswer& answer,
           BatchListener* listener)
      : params_(params),
        options_(options),
        answer_(answer),
        region_(options.region),
        input_(*options.batchFile),
        output_(resultsOf(options), input_.size(), listener),
        signals_([this](int signal) { output_.interrupt(signal); }),
        items_(kMaxItems),
        workers_(
            jobsThatFit(options.jobs), kMaxItems, [this](size_t i) { answerItem(items_[i]); },
            [this](size_t i) { deliverUpTo(i); }) {}

  void run();

 private:
  static constexpr size_t kMaxItems = 512;

  struct Item {
    InputLine line;
    std::optional<BatchRequest> request;  // none: the line was not parsed yet
    bool isAnswered = false;
    BatchResult result;
  };

  bool collect();
  void answerCollected();
  void answerItem(Item& item) const noexcept;
  void deliverUpTo(size_t last);

  TarqDmrParamsInterface& params_;
  const ResourceOptions& options_;
  const BatchAnswer& answer_;
  int32_t region_;  // belongs to the whole plug-in: the lines answered at once are of one region
  BatchInput input_;
  BatchOutput output_;
  SignalThread signals_;  // before the workers, which must not take the signals
  std::vector<Item> items_;
  size_t count_ = 0;      // of the items collected
  size_t delivered_ = 0;  // of them
  OrderedWorkers workers_;
};

void BatchRun::run() {
  while (input_.fill()) {
    while (collect()) answerCollected();
    output_.flush();
  }
  output_.end();
}

bool BatchRun::collect() {
  for (count_ = 0; count_ < kMaxItems; ++count_) {
    const auto line = input_.nextLine();
    if (!line) break;
    items_[count_].line = *line;
    items_[count_].request.reset();
    items_[count_].isAnswered = false;
  }
  return count_ > 0;
}

// Each round answers the lines of one region. Nearly always there is one.
void BatchRun::answerCollected() {
  for (delivered_ = 0; delivered_ < count_;) {
    const auto& request = items_[delivered_].request;
    if (request) region_ = request->region;
    params_.SetCurrentRegion(region_);
    workers_.run(delivered_, count_);
  }
}

void BatchRun::answerItem(Item& item) const noexcept {
  if (item.isAnswered) return;
  try {
    if (!item.request) item.request = parseBatchLine(item.line, options_.region);
    const bool otherRegion = item.request->problem == nullptr && item.request->region != region_;
    if (otherRegion) return;
    item.result = answerBatchLine(*item.request, answer_);
  } catch (const std::bad_alloc&) {
    item.result = {R"({"code":-1,"message":"not enough memory for this line"})", {.code = kInvalidLine}};
  }
  item.isAnswered = true;
}

void BatchRun::deliverUpTo(size_t last) {
  requireNoShortage();
  for (; delivered_ <= last && items_[delivered_].isAnswered; ++delivered_)
    output_.add(std::exchange(items_[delivered_].result, {}), items_[delivered_].line.inputEnd);
}

}  // namespace

void runBatch(TarqDmrParamsInterface& params, const ResourceOptions& options, const BatchAnswer& answer,
              BatchListener* listener) {
  BatchRun(params, options, answer, listener).run();
}
