#ifndef TARQ_EVENT_SENDER_H_
#define TARQ_EVENT_SENDER_H_

#include <chrono>
#include <functional>

#include "LastChange.h"
#include "MainLoop.h"

// Tells the subscribers of a service what is new, at most five times a second: changes in between are collected,
// and the last value counts.
// Threads: the main loop's, but `changed` on any.
class EventSender {
 public:
  using Values = std::function<std::vector<NamedValue>()>;

  // `values`: what subscribers are told. `send` passes the text on.
  EventSender(MainLoop& loop, const char* namespaceName, Values values,
              std::function<void(const std::string&)> send);

  void changed();
  std::string everything() const { return lastChange_.everything(values_()); }  // for a new subscriber

 private:
  void sendSoon();
  void sendNow();

  MainLoop& loop_;
  LastChange lastChange_;
  const Values values_;
  const std::function<void(const std::string&)> send_;
  std::chrono::steady_clock::time_point sent_;
  bool isWaiting_ = false;
};

#endif  // TARQ_EVENT_SENDER_H_
