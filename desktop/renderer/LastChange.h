#ifndef TARQ_LAST_CHANGE_H_
#define TARQ_LAST_CHANGE_H_

#include <string>
#include <vector>

#include "Rendering.h"
#include "TransportValues.h"

// The LastChange variable of a service: which of its values are new, as XML.
// Threads: one at a time.
// Source: AVTransport:1, 2.3.1; RenderingControl:1, 2.3.1.
class LastChange {
 public:
  explicit LastChange(const char* namespaceName) : namespace_(namespaceName) {}

  // Returns: what differs from the values of the last call; empty when nothing does.
  std::string changes(const std::vector<NamedValue>& values);
  std::string everything(const std::vector<NamedValue>& values) const;

 private:
  const char* namespace_;
  std::vector<NamedValue> told_;
};

inline constexpr const char* kTransportEvents = "urn:schemas-upnp-org:metadata-1-0/AVT/";
inline constexpr const char* kRenderingEvents = "urn:schemas-upnp-org:metadata-1-0/RCS/";

std::vector<NamedValue> toldRenderingValues(const RenderingState& now);

#endif  // TARQ_LAST_CHANGE_H_
