#ifndef TARQ_EVENT_DELAY_H_
#define TARQ_EVENT_DELAY_H_

#include <gio/gio.h>

// For a session that sends events: each new connection begins a moment later. The first event would otherwise reach a
// busy control point together with the answer to its SUBSCRIBE, and one that reads the event first knows nothing of
// the subscription and drops it. libsoup can only be made to wait where it asks how to connect, so it is a proxy
// resolver that knows no proxy.
// Ownership: the caller unrefs it.
GProxyResolver* newEventDelay();

#endif  // TARQ_EVENT_DELAY_H_
