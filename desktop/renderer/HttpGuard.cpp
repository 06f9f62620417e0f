#include "HttpGuard.h"

#include <sys/socket.h>

#include <string_view>
#include <utility>

namespace {

constexpr goffset kMostBodyBytes = goffset{8} << 20;
constexpr size_t kMostSubscriptions = 64;
constexpr guint kEventTimeoutS = 2;

const char* requestHeader(SoupServerMessage* message, const char* name) {
  return soup_message_headers_get_one(soup_server_message_get_request_headers(message), name);
}

std::string subscriptionId(SoupMessage* event) {
  const char* sid = soup_message_headers_get_one(soup_message_get_request_headers(event), "SID");
  return sid == nullptr ? "" : sid;
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

HttpGuard::HttpGuard(SoupServer* server, std::string host)
    : server_(SOUP_SERVER(g_object_ref(server))),
      host_(std::move(host)),
      queuedSignal_(g_signal_lookup("request-queued", SOUP_TYPE_SESSION)),
      queuedHook_(g_signal_add_emission_hook(queuedSignal_, 0, eventQueued, this, nullptr)) {
  listenPatiently(server_);
  g_signal_connect(server_, "request-started", G_CALLBACK(started), this);
  g_signal_connect(server_, "request-read", G_CALLBACK(read), this);
  g_signal_connect(server_, "request-finished", G_CALLBACK(finished), this);
}

HttpGuard::~HttpGuard() {
  g_signal_remove_emission_hook(queuedSignal_, queuedHook_);
  g_signal_handlers_disconnect_by_data(server_, this);
  g_object_unref(server_);
}

void HttpGuard::started(SoupServer*, SoupServerMessage* message, gpointer self) {
  g_signal_connect(message, "got-headers", G_CALLBACK(gotHeaders), self);
  g_signal_connect(message, "got-chunk", G_CALLBACK(gotChunk), nullptr);
  static_cast<HttpGuard*>(self)->forgotten_.watch(soup_server_message_get_socket(message));
}

void HttpGuard::gotHeaders(SoupServerMessage* message, gpointer self) {
  const auto guard = static_cast<HttpGuard*>(self);
  const guint status = guard->refusal(message);
  if (status != 0) return refuse(message, status);
  if (isMethod(message, "UNSUBSCRIBE")) guard->letEventArrive(message);
}

// GUPnP 1.6 keeps what belongs to an event for good when the subscription ends while it is sent.
void HttpGuard::letEventArrive(SoupServerMessage* unsubscribe) {
  const char* sid = requestHeader(unsubscribe, "SID");
  const auto found = subscriptions_.find(sid == nullptr ? "" : sid);
  if (found == subscriptions_.end() || !found->second.isSending || found->second.end != nullptr) return;
  found->second.end = unsubscribe;
  soup_server_message_pause(unsubscribe);
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
    if (sid != nullptr) subscriptions[sid].expires = Clock::now() + kSubscriptionTime;
  } else if (isMethod(message, "UNSUBSCRIBE")) {
    if (const char* sid = requestHeader(message, "SID")) subscriptions.erase(sid);
  }
}

bool HttpGuard::hasRoomForSubscription() {
  std::erase_if(subscriptions_, [](const auto& each) { return each.second.expires < Clock::now(); });
  return subscriptions_.size() < kMostSubscriptions;
}

gboolean HttpGuard::eventQueued(GSignalInvocationHint*, guint, const GValue* values, gpointer self) {
  const auto guard = static_cast<HttpGuard*>(self);
  const auto event = SOUP_MESSAGE(g_value_get_object(&values[1]));
  if (soup_message_get_method(event) != std::string_view("NOTIFY")) return TRUE;
  const auto session = SOUP_SESSION(g_value_get_object(&values[0]));
  soup_session_set_timeout(session, kEventTimeoutS);
  if (soup_session_get_proxy_resolver(session) != guard->eventGate_.resolver())
    soup_session_set_proxy_resolver(session, guard->eventGate_.resolver());
  const auto [subscription, isNew] = guard->subscriptions_.try_emplace(subscriptionId(event));
  if (isNew) guard->eventGate_.openFor(soup_message_get_uri(event));
  subscription->second.isSending = true;
  g_signal_connect(event, "finished", G_CALLBACK(eventFinished), self);
  return TRUE;
}

// A message that libsoup sends again finishes twice.
void HttpGuard::eventFinished(SoupMessage* event, gpointer self) {
  g_signal_handlers_disconnect_by_data(event, self);
  const auto guard = static_cast<HttpGuard*>(self);
  if (soup_message_get_status(event) == SOUP_STATUS_NONE)
    guard->eventGate_.closeFor(soup_message_get_uri(event));
  const auto found = guard->subscriptions_.find(subscriptionId(event));
  if (found == guard->subscriptions_.end()) return;
  found->second.isSending = false;
  if (SoupServerMessage* end = std::exchange(found->second.end, nullptr)) soup_server_message_unpause(end);
}
