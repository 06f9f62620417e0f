#include "Page.h"

#include <libsoup/soup.h>

#include <string_view>

#include "Description.h"
#include "RendererPage.h"

namespace {

constexpr std::string_view kDataPath = "/page/now";

void answer(SoupServerMessage* message, const char* type, std::string_view body) {
  SoupMessageHeaders* headers = soup_server_message_get_response_headers(message);
  soup_message_headers_replace(headers, "Cache-Control", "no-store");
  soup_message_headers_replace(headers, "X-Content-Type-Options", "nosniff");
  soup_message_headers_replace(headers, "X-Frame-Options", "DENY");
  soup_server_message_set_status(message, SOUP_STATUS_OK, nullptr);
  soup_server_message_set_response(message, type, SOUP_MEMORY_COPY, body.data(), body.size());
}

int64_t numberOf(GHashTable* query, const char* name) {
  const auto value = query == nullptr ? nullptr : static_cast<const char*>(g_hash_table_lookup(query, name));
  return value == nullptr ? 0 : g_ascii_strtoll(value, nullptr, 10);
}

}  // namespace

Page::Page(GUPnPContext* context, std::function<std::string(int64_t)> data)
    : context_(context), data_(std::move(data)) {
  gupnp_context_add_server_handler(context_, TRUE, kPagePath, requested, this, nullptr);
}

Page::~Page() { gupnp_context_remove_server_handler(context_, kPagePath); }

void Page::requested(SoupServer*, SoupServerMessage* message, const char* path, GHashTable* query,
                     gpointer self) {
  const std::string_view method = soup_server_message_get_method(message);
  if (method != "GET" && method != "HEAD") {
    soup_message_headers_replace(soup_server_message_get_response_headers(message), "Allow", "GET, HEAD");
    return soup_server_message_set_status(message, SOUP_STATUS_METHOD_NOT_ALLOWED, nullptr);
  }
  const std::string_view asked = path;
  if (asked == kPagePath) return answer(message, "text/html; charset=utf-8", kRendererPage);
  if (asked == kDataPath) {
    const auto page = static_cast<Page*>(self);
    return answer(message, "application/json", page->data_(numberOf(query, "after")));
  }
  soup_server_message_set_status(message, SOUP_STATUS_NOT_FOUND, nullptr);
}
