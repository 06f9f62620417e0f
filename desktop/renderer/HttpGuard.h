#ifndef TARQ_HTTP_GUARD_H_
#define TARQ_HTTP_GUARD_H_

#include <libsoup/soup.h>

#include <chrono>
#include <map>
#include <string>

// Watches over the HTTP server that GUPnP runs and over the events that it sends:
// requests for another host (DNS rebinding) or with too large a body are refused, subscriptions are limited in
// number, connections are closed after each answer, and a subscriber that takes no events loses its subscription
// instead of holding up events or memory.
// Threads: the main loop's. At most one at a time: the sessions of GUPnP cannot be told apart.
class HttpGuard {
 public:
  // `host`: the only Host header, "192.168.0.2:52323". `agent`: the User-Agent of the guard's own requests.
  HttpGuard(SoupServer* server, std::string host, std::string agent);
  ~HttpGuard();
  HttpGuard(const HttpGuard&) = delete;
  HttpGuard& operator=(const HttpGuard&) = delete;

 private:
  using Clock = std::chrono::steady_clock;
  struct Subscription {
    std::string path;  // that it was asked for at
    Clock::time_point ends;
    int waitingEvents = 0;
  };

  static void started(SoupServer*, SoupServerMessage* message, gpointer self);
  static void gotHeaders(SoupServerMessage* message, gpointer self);
  static void gotChunk(SoupServerMessage* message, GBytes* chunk, gpointer);
  static void read(SoupServer*, SoupServerMessage* message, gpointer);
  static void finished(SoupServer*, SoupServerMessage* message, gpointer self);
  static gboolean eventQueued(GSignalInvocationHint*, guint count, const GValue* values, gpointer self);
  static void eventFinished(SoupMessage* message, gpointer self);

  guint refusal(SoupServerMessage* message);  // 0: none
  bool hasRoomForSubscription();
  void drop(const std::string& sid);

  SoupServer* const server_;
  SoupSession* const session_;
  GProxyResolver* const eventDelay_;
  const std::string host_;
  const std::string agent_;
  const guint queuedSignal_;
  const gulong queuedHook_;
  std::map<std::string, Subscription> subscriptions_;  // by SID
};

#endif  // TARQ_HTTP_GUARD_H_
