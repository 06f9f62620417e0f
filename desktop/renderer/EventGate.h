#ifndef TARQ_EVENT_GATE_H_
#define TARQ_EVENT_GATE_H_

#include <gio/gio.h>

#include <string>

// When a session may connect to a subscriber to send it an event: a moment later, as the first event would otherwise
// reach a busy control point together with the answer to its SUBSCRIBE, and one that reads the event first knows
// nothing of the subscription and drops it; and not at all for a while to one that did not take the last event, or
// its events would pile up, since GUPnP sends one after the other.
// libsoup can only be held up where it asks how to connect, so the gate is a proxy resolver that knows no proxy.
// Threads: the main loop's.
class EventGate {
 public:
  EventGate();
  ~EventGate();
  EventGate(const EventGate&) = delete;
  EventGate& operator=(const EventGate&) = delete;

  // Ownership: the gate's.
  GProxyResolver* resolver() const { return resolver_; }

  void closeFor(GUri* subscriber);  // for 4 s; no longer when it is closed already
  void openFor(GUri* subscriber);

 private:
  GProxyResolver* const resolver_;
};

#endif  // TARQ_EVENT_GATE_H_
