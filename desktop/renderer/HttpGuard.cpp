#include "HttpGuard.h"

#include <sys/socket.h>

#include <string_view>
#include <utility>

#include "EventDelay.h"

namespace {

constexpr goffset kMostBodyBytes = goffset{8} << 20;
constexpr size_t kMostSubscriptions = 64;
constexpr auto kSubscriptionTime = std::chrono::seconds(300);  // what GUPnP grants, whatever is asked for
constexpr guint kEventTimeoutS = 2;
constexpr int kMostWaitingEvents = 16;  // of one subscription

const char* requestHeader(SoupServerMessage* message, const char* name) {
  return soup_message_headers_get_one(soup_server_message_get_request_headers(message), name);
}

bool isMethod(SoupServerMessage* message, std::string_view method) {
  return soup_server_message_get_method(message) == method;
}

// libsoup lets ten connections wait to be accepted; of more, some would only come a second later.
void listenPatiently(SoupServer* server) {
  GSList* sockets = soup_server_get_listeners(server);
  for (GSList* each = sockets; each != nullptr; each = each->next) {
    const auto socket = static_cast<GSocket*>(each->data);
    g_socket_set_listen_backlog(socket, SOMAXCONN);
    g_socket_listen(socket, nullptr);
  }
  g_slist_free(sockets);
}

// A status that is set before the body has come keeps the request from GUPnP; the body is read and dropped.
void refuse(SoupServerMessage* message, guint status) {
  soup_server_message_set_status(message, status, nullptr);
  soup_message_body_set_accumulate(soup_server_message_get_request_body(message), FALSE);
}

}  // namespace

HttpGuard::HttpGuard(SoupServer* server, std::string host, std::string agent)
    : server_(SOUP_SERVER(g_object_ref(server))),
      session_(soup_session_new()),
      eventDelay_(newEventDelay()),
      host_(std::move(host)),
      agent_(std::move(agent)),
      queuedSignal_(g_signal_lookup("request-queued", SOUP_TYPE_SESSION)),
      queuedHook_(g_signal_add_emission_hook(queuedSignal_, 0, eventQueued, this, nullptr)) {
  soup_session_set_user_agent(session_, agent_.c_str());
  soup_session_set_proxy_resolver(session_, nullptr);
  listenPatiently(server_);
  g_signal_connect(server_, "request-started", G_CALLBACK(started), this);
  g_signal_connect(server_, "request-read", G_CALLBACK(read), this);
  g_signal_connect(server_, "request-finished", G_CALLBACK(finished), this);
}

HttpGuard::~HttpGuard() {
  g_signal_remove_emission_hook(queuedSignal_, queuedHook_);
  g_signal_handlers_disconnect_by_data(server_, this);
  soup_session_abort(session_);
  g_object_unref(session_);
  g_object_unref(eventDelay_);
  g_object_unref(server_);
}

void HttpGuard::started(SoupServer*, SoupServerMessage* message, gpointer self) {
  g_signal_connect(message, "got-headers", G_CALLBACK(gotHeaders), self);
  g_signal_connect(message, "got-chunk", G_CALLBACK(gotChunk), nullptr);
}

void HttpGuard::gotHeaders(SoupServerMessage* message, gpointer self) {
  const guint status = static_cast<HttpGuard*>(self)->refusal(message);
  if (status != 0) refuse(message, status);
}

// A body without a length is counted as it comes.
void HttpGuard::gotChunk(SoupServerMessage* message, GBytes*, gpointer) {
  const bool tooLarge = soup_server_message_get_request_body(message)->length > kMostBodyBytes;
  if (tooLarge) refuse(message, SOUP_STATUS_REQUEST_ENTITY_TOO_LARGE);
}

guint HttpGuard::refusal(SoupServerMessage* message) {
  const char* host = requestHeader(message, "Host");
  if (host != nullptr && host_ != host) return SOUP_STATUS_PRECONDITION_FAILED;
  SoupMessageHeaders* headers = soup_server_message_get_request_headers(message);
  if (soup_message_headers_get_content_length(headers) > kMostBodyBytes) {
    return SOUP_STATUS_REQUEST_ENTITY_TOO_LARGE;
  }
  const bool subscribes = isMethod(message, "SUBSCRIBE") && requestHeader(message, "SID") == nullptr;
  return subscribes && !hasRoomForSubscription() ? SOUP_STATUS_SERVICE_UNAVAILABLE : 0;
}

// libsoup 3.2 does not notice when a client closes a connection that was kept for its next request, and keeps the
// socket for good. So no connection is kept, and clients are told so: some would otherwise use it again.
void HttpGuard::read(SoupServer*, SoupServerMessage* message, gpointer) {
  SoupMessageHeaders* answer = soup_server_message_get_response_headers(message);
  soup_message_headers_replace(answer, "Connection", "close");
  // GUPnP names itself in answers to actions and subscriptions.
  if (isMethod(message, "GET"))
    soup_message_headers_replace(answer, "Server", "Linux UPnP/1.0 tarq-dmr/" TARQ_DMR_VERSION);
}

void HttpGuard::finished(SoupServer*, SoupServerMessage* message, gpointer self) {
  if (soup_server_message_get_status(message) != SOUP_STATUS_OK) return;
  auto& subscriptions = static_cast<HttpGuard*>(self)->subscriptions_;
  if (isMethod(message, "SUBSCRIBE")) {
    const char* sid = soup_message_headers_get_one(soup_server_message_get_response_headers(message), "SID");
    if (sid == nullptr) return;
    Subscription& subscription = subscriptions[sid];
    subscription.path = g_uri_get_path(soup_server_message_get_uri(message));
    subscription.ends = Clock::now() + kSubscriptionTime;
  } else if (isMethod(message, "UNSUBSCRIBE")) {
    if (const char* sid = requestHeader(message, "SID")) subscriptions.erase(sid);
  }
}

bool HttpGuard::hasRoomForSubscription() {
  std::erase_if(subscriptions_, [](const auto& each) { return each.second.ends < Clock::now(); });
  return subscriptions_.size() < kMostSubscriptions;
}

gboolean HttpGuard::eventQueued(GSignalInvocationHint*, guint, const GValue* values, gpointer self) {
  const auto guard = static_cast<HttpGuard*>(self);
  const auto message = SOUP_MESSAGE(g_value_get_object(&values[1]));
  if (soup_message_get_method(message) != std::string_view("NOTIFY")) return TRUE;
  const auto session = SOUP_SESSION(g_value_get_object(&values[0]));
  soup_session_set_timeout(session, kEventTimeoutS);
  if (soup_session_get_proxy_resolver(session) != guard->eventDelay_)
    soup_session_set_proxy_resolver(session, guard->eventDelay_);
  const char* sid = soup_message_headers_get_one(soup_message_get_request_headers(message), "SID");
  const auto found = guard->subscriptions_.find(sid == nullptr ? "" : sid);
  if (found == guard->subscriptions_.end()) return TRUE;
  g_signal_connect(message, "finished", G_CALLBACK(eventFinished), self);
  if (++found->second.waitingEvents == kMostWaitingEvents) guard->drop(found->first);
  return TRUE;
}

// A message that libsoup sends again finishes twice.
void HttpGuard::eventFinished(SoupMessage* message, gpointer self) {
  g_signal_handlers_disconnect_by_data(message, self);
  auto& subscriptions = static_cast<HttpGuard*>(self)->subscriptions_;
  const char* sid = soup_message_headers_get_one(soup_message_get_request_headers(message), "SID");
  const auto found = subscriptions.find(sid);
  if (found != subscriptions.end()) --found->second.waitingEvents;
}

// GUPnP has no call for it.
void HttpGuard::drop(const std::string& sid) {
  const std::string url = "http://" + host_ + subscriptions_[sid].path;
  SoupMessage* message = soup_message_new("UNSUBSCRIBE", url.c_str());
  soup_message_headers_replace(soup_message_get_request_headers(message), "SID", sid.c_str());
  soup_session_send_async(session_, message, G_PRIORITY_DEFAULT, nullptr, nullptr, nullptr);
  g_object_unref(message);
}
