#ifndef TARQ_ACCESS_DECISION_H_
#define TARQ_ACCESS_DECISION_H_

#include <functional>
#include <mutex>
#include <string>

#include "AccessRecord.h"
#include "RendererOptions.h"

// The application's two functions on a workstation: the options decide, or a person at the terminal.
class AccessDecision : public AccessApplication {
 public:
  // `log` shows a line; it may be called on any thread.
  AccessDecision(const RendererOptions& options, std::function<void(const std::string&)> log);

  bool allows(const AccessDevice& device) override;
  void deviceSeen(const AccessDevice& device) override;

 private:
  bool decide(const AccessDevice& device);
  bool askPerson(const AccessDevice& device);

  const RendererOptions& options_;
  const std::function<void(const std::string&)> log_;
  std::mutex terminal_;  // one question at a time
};

#endif  // TARQ_ACCESS_DECISION_H_
