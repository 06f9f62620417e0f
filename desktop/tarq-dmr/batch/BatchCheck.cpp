#include <new>
#include <string>
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
        region_(options.region),
        input_(options.file),
        items_(kMaxItems),
        workers_(
            options.jobs, kMaxItems, [this](size_t i) { answer(items_[i]); },
            [this](size_t i) { deliver(i); }) {}

  void run();

 private:
  static constexpr size_t kMaxItems = 512;

  enum class State { kUnread, kRead, kAnswered };
  struct Item {
    InputLine line;
    std::string text;  // the copy that the request points into
    State state = State::kUnread;
    BatchRequest request;
    JsonText answer;
  };

  bool collect();
  void answerCollected();
  void answer(Item& item) noexcept;
  void read(Item& item);
  void check(Item& item);
  void deliver(size_t last);

  TarqDmrParamsInterface& params_;
  const int32_t defaultRegion_;
  int32_t region_;  // belongs to the whole process: checks at once are checks of one region
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
    items_[count_].line = *line;
    items_[count_].state = State::kUnread;
  }
  return count_ > 0;
}

// Each round answers the lines of one region. Nearly always all of them are of the last one.
void BatchRun::answerCollected() {
  for (delivered_ = 0; delivered_ < count_;) {
    if (items_[delivered_].state == State::kRead) region_ = items_[delivered_].request.region;
    params_.SetCurrentRegion(region_);
    workers_.run(delivered_, count_);
  }
}

void BatchRun::answer(Item& item) noexcept {
  try {
    if (item.state == State::kUnread) read(item);
    const char* problem = item.request.problem;
    if (item.state == State::kAnswered || (problem == nullptr && item.request.region != region_)) return;
    item.state = State::kAnswered;
    item.answer.clear();
    if (problem == nullptr) return check(item);
    writeRefused(item.answer, kInvalidLine, problem);
  } catch (const std::bad_alloc&) {
    item.state = State::kAnswered;
    item.answer.clear();
    writeRefused(item.answer, kInvalidLine, "not enough memory for the check");
  }
}

// A line is read where it is checked: its bytes are in that processor's cache then. From a copy, since the
// JSON reader writes into a line, and loads a few bytes of the next one, which may be another thread's.
void BatchRun::read(Item& item) {
  InputLine line = item.line;
  if (line.text != nullptr) {
    item.text.assign(line.text, line.length);
    item.text.append(kJsonSlackBytes, '\0');
    line.text = item.text.data();
  }
  item.request = parseBatchLine(line, defaultRegion_);
  item.state = State::kRead;
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

// Writes what is answered up to item `last`, in order.
void BatchRun::deliver(size_t last) {
  constexpr size_t kKeptBytes = 16384;  // one long line must not hold its memory for ever
  for (; delivered_ <= last && items_[delivered_].state == State::kAnswered; ++delivered_) {
    Item& item = items_[delivered_];
    output_.addLine(item.answer.text());
    if (item.text.capacity() > kKeptBytes) std::string().swap(item.text);
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
