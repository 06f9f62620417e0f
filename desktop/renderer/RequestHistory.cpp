#include "RequestHistory.h"

#include <algorithm>
#include <string_view>

#include "ResultText.h"
#include "Steps.h"

namespace {

constexpr size_t kMostRequests = 50;

int64_t nowMs() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

std::string checkJson(const CheckedSource& checked) {
  JsonWriter json;
  {
    JsonObject object(json);
    object.add("code", checked.code);
    object.add("message", describe(checked.code));
    object.add("tookMs", checked.tookMs);
  }
  return json.take();
}

}  // namespace

bool RequestHistory::Request::repeats(const Request& earlier) const {
  return std::string_view(action->name).starts_with("Get") && action == earlier.action &&
         error == earlier.error && address == earlier.address;
}

void RequestHistory::add(const PendingAction& done, std::chrono::microseconds took,
                         const LoggedChoice* choice) {
  // Numbers of a renderer that was started again go on above: a page that is open takes them.
  lastNumber_ = std::max(lastNumber_ + 1, nowMs());
  Request request{.id = lastNumber_,
                  .number = lastNumber_,
                  .timeMs = nowMs(),
                  .times = 1,
                  .address = done.address,
                  .agent = done.agent.empty() ? "" : shown(done.agent.c_str()),
                  .service = &done.call.service(),
                  .action = &done.call.action(),
                  .error = done.error ? done.error->code : 0,
                  .message = done.error ? errorWords(done) : "",
                  .microseconds = took.count(),
                  .choice = choice == nullptr ? nullptr : remember(*choice)};
  const auto same =
      std::ranges::find_if(requests_, [&](const Request& each) { return request.repeats(each); });
  if (same != requests_.end()) {
    request.id = same->id;
    request.times += same->times;
    *same = std::move(request);
    return;
  }
  if (requests_.size() == kMostRequests) requests_.pop_front();
  requests_.push_back(std::move(request));
}

std::shared_ptr<const RequestHistory::Choice> RequestHistory::remember(const LoggedChoice& logged) {
  auto choice =
      std::make_shared<const Choice>(Choice{logged.checked, logged.words.item, checkJson(*logged.checked)});
  std::erase_if(alive_, [](const auto& each) { return each->source.expired(); });
  alive_.push_back(choice);
  return choice;
}

void RequestHistory::write(JsonObject& object, int64_t after) const {
  std::vector<const Request*> wanted;
  for (const Request& request : requests_) {
    if (request.number > after) wanted.push_back(&request);
  }
  object.addObjects("requests", wanted.size(), [&](JsonObject& json, size_t i) {
    const Request& request = *wanted[i];
    json.add("id", request.id);
    json.add("number", request.number);
    json.add("time", request.timeMs);
    json.add("times", request.times);
    json.add("address", request.address);
    json.add("agent", request.agent);
    json.add("service", request.service->name);
    json.add("action", request.action->name);
    json.add("error", request.error);
    json.add("message", request.message);
    json.add("microseconds", request.microseconds);
    writeChoice(json, request.choice.get());
  });
}

void RequestHistory::writeChoice(JsonObject& object, const CheckedSource* source) const {
  const auto isOfSource = [&](const auto& each) { return each->source.lock().get() == source; };
  const auto found = std::ranges::find_if(alive_, isOfSource);
  writeChoice(object, source == nullptr || found == alive_.end() ? nullptr : found->get());
}

void RequestHistory::writeChoice(JsonObject& object, const Choice* choice) {
  if (choice == nullptr) return object.addNull("choice");
  object.addObject("choice", [&](JsonObject& json) {
    json.addJson("item", choice->item);
    json.addJson("check", choice->check);
  });
}
