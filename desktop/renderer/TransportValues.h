#ifndef TARQ_TRANSPORT_VALUES_H_
#define TARQ_TRANSPORT_VALUES_H_

#include <string>
#include <string_view>
#include <vector>

#include "Transport.h"

// The state variables of AVTransport that have a value.

const char* stateWord(TransportState state);  // "PAUSED_PLAYBACK"

std::string transportValue(std::string_view variable, const TransportSnapshot& now);  // one that has a value

struct NamedValue {
  std::string name;
  std::string value;
  bool operator==(const NamedValue&) const = default;
};
// All that subscribers are told; not the positions, which change all the time.
std::vector<NamedValue> toldTransportValues(const TransportSnapshot& now);

#endif  // TARQ_TRANSPORT_VALUES_H_
