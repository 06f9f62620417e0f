#ifndef TARQ_ACTION_CALL_H_
#define TARQ_ACTION_CALL_H_

#include <map>
#include <string>
#include <string_view>

#include "ServiceTable.h"

// Why an action is refused: a UPnP error code and its description.
struct ActionError {
  int code;
  std::string words = {};  // empty: those of the standard
};
// Source: UPnP Device Architecture 1.0, 3.2.2; AVTransport:1, RenderingControl:1 and ConnectionManager:1.
const char* describeUpnpError(const Service& service, int code);

// An action that a control point asked for: its arguments, and what is answered.
// Threads: one at a time.
class ActionCall {
 public:
  ActionCall(const Service& service, const Action& action) : service_(service), action_(action) {}

  const Service& service() const { return service_; }
  const Action& action() const { return action_; }

  // Takes an argument as it was written.
  // Errors: ActionError when its type, range or allowed values forbid the value.
  void setInput(const Argument& argument, const std::string& value);
  const std::string& in(std::string_view name) const { return inputs_.find(name)->second; }
  int number(std::string_view name) const;  // of an argument that is a number
  bool flag(std::string_view name) const;   // of one that is a boolean

  void out(std::string_view name, const std::string& value) {
    outputs_.insert_or_assign(std::string(name), value);
  }
  void out(std::string_view name, int value) { out(name, std::to_string(value)); }
  // Returns: the answer's value of an output argument, empty if it was not set.
  std::string output(std::string_view name) const;

  unsigned checkTicket = 0;  // of an action that has a source checked: see SourceCheck

 private:
  using Values = std::map<std::string, std::string, std::less<>>;

  const Service& service_;
  const Action& action_;
  Values inputs_;
  Values outputs_;
};

#endif  // TARQ_ACTION_CALL_H_
