#ifndef TARQ_REQUEST_HISTORY_H_
#define TARQ_REQUEST_HISTORY_H_

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "JsonObject.h"
#include "RequestLog.h"

// The last requests, for the renderer's page. A control point that asks the same question again and again takes one
// place, that of the first time. Memory is limited, whatever is asked.
// Threads: the main loop's.
class RequestHistory {
 public:
  // `choice`: null for an action that has nothing checked.
  void add(const PendingAction& done, std::chrono::microseconds took, const LoggedChoice* choice);

  // "requests": those with a number above `after`, in the order in which they first came.
  void write(JsonObject& object, int64_t after) const;
  // "choice": how this source was chosen; null when that is not known.
  void writeChoice(JsonObject& object, const CheckedSource* source) const;

 private:
  // What a page shows of a check, without the metadata.
  struct Choice {
    std::weak_ptr<const CheckedSource> source;
    std::string item;
    std::string check;  // its result
  };
  struct Request {
    int64_t id;      // stays when it is repeated
    int64_t number;  // of the last time
    int64_t timeMs;  // since 1970
    int times;
    std::string address;
    std::string agent;
    const Service* service;
    const Action* action;
    int error;  // 0: done
    std::string message;
    int64_t microseconds;
    std::shared_ptr<const Choice> choice;  // null: nothing was checked

    bool repeats(const Request& earlier) const;
  };

  static void writeChoice(JsonObject& object, const Choice* choice);
  std::shared_ptr<const Choice> remember(const LoggedChoice& logged);

  std::deque<Request> requests_;
  std::vector<std::shared_ptr<const Choice>> alive_;  // of sources that may still be played
  int64_t lastNumber_ = 0;
};

#endif  // TARQ_REQUEST_HISTORY_H_
