#ifndef TARQ_REQUEST_LOG_H_
#define TARQ_REQUEST_LOG_H_

#include <chrono>
#include <memory>
#include <string>

#include "ChoiceWords.h"
#include "SourceCheck.h"
#include "UpnpDevice.h"

// What an action had checked, and how the choice was made.
struct LoggedChoice {
  std::shared_ptr<const CheckedSource> checked;
  ChoiceWords words;
};

// What happens, live on standard output: a line for each action and for each choice, or JSON lines.
// Threads: the main loop's.
class RequestLog {
 public:
  RequestLog(bool json, bool explains) : json_(json), explains_(explains) {}

  // What `action` wants of a choice.
  ChoiceDetail detail() const {
    if (json_) return ChoiceDetail::kJson;
    return explains_ ? ChoiceDetail::kText : ChoiceDetail::kLine;
  }

  void note(const std::string& words) const;  // something that is not an action
  // `choice`: null for an action that has nothing checked.
  void action(const PendingAction& done, std::chrono::microseconds took, const LoggedChoice* choice) const;

 private:
  const bool json_;
  const bool explains_;  // the whole explanation of each choice
};

#endif  // TARQ_REQUEST_LOG_H_
