#ifndef TARQ_HTTP_GUARD_H_
#define TARQ_HTTP_GUARD_H_

#include <libsoup/soup.h>

#include <chrono>
#include <map>
#include <string>

#include "EventGate.h"
#include "ForgottenSockets.h"

// Watches over the HTTP server that GUPnP runs and over the events that it sends:
// requests for another host (DNS rebinding) or with too large a body are refused, subscriptions are limited in
// number, connections are closed after each answer, and a subscriber that takes no events holds up neither other
// events nor memory.
// Threads: the main loop's. At most one at a time: the sessions of GUPnP cannot be told apart.
class HttpGuard {
 public:
  // `host`: the only Host header, "192.168.0.2:52323".
  HttpGuard(SoupServer* server, std::string host);
  ~HttpGuard();
  HttpGuard(const HttpGuard&) = delete;
  HttpGuard& operator=(const HttpGuard&) = delete;

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::seconds kSubscriptionTime{300};  // granted by GUPnP, whatever is asked for
  // Begins with its first event, before the answer to SUBSCRIBE has left.
  struct Subscription {
    Clock::time_point expires = Clock::now() + kSubscriptionTime;
    bool isSending = false;            // an event
    SoupServerMessage* end = nullptr;  // UNSUBSCRIBE that waits for it
  };

  static void started(SoupServer*, SoupServerMessage* message, gpointer self);
  static void gotHeaders(SoupServerMessage* message, gpointer self);
  static void gotChunk(SoupServerMessage* message, GBytes* chunk, gpointer);
  static void read(SoupServer*, SoupServerMessage* message, gpointer);
  static void finished(SoupServer*, SoupServerMessage* message, gpointer self);
  static gboolean eventQueued(GSignalInvocationHint*, guint count, const GValue* values, gpointer self);
  static void eventFinished(SoupMessage* event, gpointer self);

  void letEventArrive(SoupServerMessage* unsubscribe);
  guint refusal(SoupServerMessage* message);  // 0: none
  bool hasRoomForSubscription();

  SoupServer* const server_;
  const std::string host_;
  const guint queuedSignal_;
  const gulong queuedHook_;
  std::map<std::string, Subscription> subscriptions_;  // by SID
  EventGate eventGate_;
  ForgottenSockets forgotten_;
};

#endif  // TARQ_HTTP_GUARD_H_
