#include "EventSender.h"

#include <algorithm>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;

// Source: AVTransport:1, 2.3.1.
constexpr auto kInterval = std::chrono::milliseconds(200);

}  // namespace

EventSender::EventSender(MainLoop& loop, const char* namespaceName, Values values,
                         std::function<void(const std::string&)> send)
    : loop_(loop), lastChange_(namespaceName), values_(std::move(values)), send_(std::move(send)) {}

void EventSender::changed() {
  loop_.post([this] { sendSoon(); });
}

void EventSender::sendSoon() {
  if (isWaiting_) return;
  const Clock::time_point due = sent_ + kInterval;
  if (due <= Clock::now()) return sendNow();
  isWaiting_ = true;
  loop_.postAfter(std::chrono::ceil<std::chrono::milliseconds>(due - Clock::now()), [this] { sendNow(); });
}

void EventSender::sendNow() {
  isWaiting_ = false;
  const std::string text = lastChange_.changes(values_());
  if (text.empty()) return;
  sent_ = Clock::now();
  send_(text);
}
