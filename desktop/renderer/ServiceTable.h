#ifndef TARQ_SERVICE_TABLE_H_
#define TARQ_SERVICE_TABLE_H_

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// What the three services offer, as data: their state variables, their actions with arguments, and what runs each
// action. The service descriptions and the checks of arguments both come from these rows.

class ActionCall;
struct RendererParts;

enum class ValueType { kString, kUi2, kUi4, kI4, kBoolean };

struct ValueRange {
  int64_t least = 0;
  int64_t most = 0;
  bool isSet() const { return most > least; }
};

struct StateVariable {
  const char* name;
  ValueType type = ValueType::kString;
  int refusal = 600;         // error code for a value that is neither offered nor taken, or out of range
  const char* allowed = "";  // the values that it offers, separated by commas; empty: any value
  const char* taken = "";    // more values that an argument may have
  ValueRange range = {};
  bool evented = false;
};

struct Argument {
  const char* name = nullptr;  // null: the row has no more arguments
  const char* variable = nullptr;
};

// Where an action runs. Answers from memory come at once, while the other two may wait for a player or a server.
enum class RunsOn { kMemory, kTransport, kRendering };

struct Action {
  const char* name;
  std::array<Argument, 3> in;
  std::array<Argument, 9> out;
  void (*run)(RendererParts&, ActionCall&);
  RunsOn runsOn;
  bool checksSource = false;  // it has the plug-in choose what to play
  bool endsCheck = false;     // a choice that is still being made is given up for it

  std::span<const Argument> inputs() const;
  std::span<const Argument> outputs() const;
};

struct Service {
  const char* name;  // also that of its description: NAME.xml
  std::span<const StateVariable> variables;
  std::span<const Action> actions;
  int instanceRefusal;  // error code for another InstanceID than 0

  std::string type() const;  // "urn:schemas-upnp-org:service:NAME:1"
  const StateVariable& variable(std::string_view variableName) const;  // must exist
};

extern const Service kAvTransport;
extern const Service kRenderingControl;
extern const Service kConnectionManager;

inline constexpr std::array kServices = {&kAvTransport, &kRenderingControl, &kConnectionManager};

#endif  // TARQ_SERVICE_TABLE_H_
