#ifndef TARQ_PAGE_H_
#define TARQ_PAGE_H_

#include <libgupnp/gupnp.h>

#include <cstdint>
#include <functional>
#include <string>

// The page that apps show of the device, served by GUPnP's HTTP server to those whom the access lists allow. It only
// shows: there is nothing to send to it.
// Threads: the main loop's.
class Page {
 public:
  // At kPagePath. `data` returns what the page shows, as JSON: the requests with a number above `after`.
  Page(GUPnPContext* context, std::function<std::string(int64_t after)> data);
  ~Page();
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

 private:
  static void requested(SoupServer*, SoupServerMessage* message, const char* path, GHashTable* query,
                        gpointer self);

  GUPnPContext* const context_;
  const std::function<std::string(int64_t)> data_;
};

#endif  // TARQ_PAGE_H_
