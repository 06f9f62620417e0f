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
#include "ResultJson.h"

namespace {

constexpr int kInvalidLine = -1;  // in the place of a result code

class BatchRun {
 public:
  BatchRun(TarqDmrParamsInterface& params, const BatchOptions& options, const BatchAnswer& answer)
      : params_(params),
        options_(options),
        answer_(answer),
        region_(options.region),
        input_(options.file),
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
    std::string answer;
  };

  bool collect();
  void answerCollected();
  void answerItem(Item& item) const noexcept;
  std::string answerTo(const BatchRequest& request) const;
  void deliverUpTo(size_t last);

  TarqDmrParamsInterface& params_;
  const BatchOptions& options_;
  const BatchAnswer& answer_;
  int32_t region_;  // belongs to the whole plug-in: the lines answered at once are of one region
  BatchInput input_;
  BatchOutput output_;
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
}

bool BatchRun::collect() {
  for (count_ = 0; count_ < kMaxItems; ++count_) {
    const auto line = input_.nextLine();
    if (!line) break;
    items_[count_] = {*line, std::nullopt, false, {}};
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
  if (!item.request) item.request = parseBatchLine(item.line, options_.region);
  const bool otherRegion = item.request->problem == nullptr && item.request->region != region_;
  if (item.isAnswered || otherRegion) return;
  item.isAnswered = true;
  try {
    item.answer = answerTo(*item.request);
  } catch (const std::bad_alloc&) {
    item.answer = R"({"code":-1,"message":"not enough memory for this line"})";
  }
}

std::string BatchRun::answerTo(const BatchRequest& request) const {
  JsonWriter json;
  if (request.problem == nullptr) {
    answer_(json, request);
  } else {
    writeRefused(json, kInvalidLine, request.problem);
  }
  return json.str();
}

void BatchRun::deliverUpTo(size_t last) {
  requireNoShortage();
  for (; delivered_ <= last && items_[delivered_].isAnswered; ++delivered_)
    output_.addLine(std::exchange(items_[delivered_].answer, {}));
}

}  // namespace

void runBatch(TarqDmrParamsInterface& params, const BatchOptions& options, const BatchAnswer& answer) {
  BatchRun(params, options, answer).run();
}
