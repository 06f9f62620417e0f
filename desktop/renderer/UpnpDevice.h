#ifndef TARQ_UPNP_DEVICE_H_
#define TARQ_UPNP_DEVICE_H_

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "AccessLists.h"
#include "ActionCall.h"
#include "NetworkInterface.h"

// An action that waits for its answer.
// Ownership: exactly one owner, who calls `send` once.
struct PendingAction {
  PendingAction(const Service& service, const Action& action) : call(service, action) {}

  ActionCall call;
  std::string address;               // of the control point
  std::string agent;                 // its User-Agent; empty when it says none
  std::optional<ActionError> error;  // none: done
  std::function<void(const PendingAction&)> send;
};

// Why it is refused: its own words, or those of the standard.
std::string errorWords(const PendingAction& refused);

// What a device asks the renderer.
// Threads: all on the main loop's.
class UpnpDeviceOwner {
 public:
  virtual ~UpnpDeviceOwner() = default;
  // To be answered by its `send`, now or later.
  virtual void act(std::unique_ptr<PendingAction> action) = 0;
  // An action that was refused for its arguments.
  virtual void refused(const PendingAction& action) = 0;
  // Returns: the value that a new subscriber is told of an evented variable.
  virtual std::string eventedValue(const Service& service, const std::string& variable) = 0;
  // Returns: what the device's page shows, as JSON: of the requests those with a number above `after`.
  virtual std::string pageData(int64_t after) = 0;
};

// The renderer on one network interface: announced, described, controlled and subscribed to, by GUPnP; with a
// page for people. Only addresses that the access lists allow can control it, subscribe or see the page.
// Threads: the main loop's.
class UpnpDevice {
 public:
  // Serves the description in `folder`, device.xml and what it names.
  // Errors: CommandError, for example when the port is taken.
  UpnpDevice(const NetworkInterface& interface, int port, const std::string& folder, AccessLists& access,
             UpnpDeviceOwner& owner);
  ~UpnpDevice();  // says goodbye to all control points

  void announce();
  void notify(const Service& service, const std::string& variable, const std::string& value);

  std::string descriptionUrl() const;

 private:
  struct Parts;
  const std::unique_ptr<Parts> parts_;
};

#endif  // TARQ_UPNP_DEVICE_H_
