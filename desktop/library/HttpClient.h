#ifndef TARQ_LIBRARY_HTTP_CLIENT_H_
#define TARQ_LIBRARY_HTTP_CLIENT_H_

#include <atomic>
#include <memory>
#include <stdexcept>
#include <string>

// A request that failed, in words.
class HttpError : public std::runtime_error {
 public:
  enum class Kind { kNoAnswer, kFailed, kTooLarge };  // kFailed: the answer says so, or is of no use

  HttpError(Kind theKind, const std::string& words) : std::runtime_error(words), kind(theKind) {}
  const Kind kind;
};

struct HttpAnswer {
  long status = 0;
  std::string body;
};

// Asks one media server after the other, over one connection where the server keeps it: http only, no proxy, no
// redirect. A connection is made within 5 s, an answer comes within 30 s and has at most 8 MiB.
// Threads: one that asks; any may stop it.
// Errors: HttpError.
class HttpClient {
 public:
  static constexpr size_t kMaxBytes = size_t{8} << 20;

  HttpClient();
  ~HttpClient();
  HttpClient(const HttpClient&) = delete;
  HttpClient& operator=(const HttpClient&) = delete;

  HttpAnswer get(const std::string& url);
  HttpAnswer postSoap(const std::string& url, const std::string& action, const std::string& body);
  void stop() { stopped_ = true; }  // what is asked fails soon, and whatever is asked later

 private:
  struct Handle;

  HttpAnswer perform(const std::string& url);

  std::unique_ptr<Handle> handle_;
  std::atomic<bool> stopped_ = false;
};

// Returns: `reference`, which may be relative, as the document at `base` means it; empty when it is not a URL.
std::string resolvedUrl(const std::string& base, const std::string& reference);
// Returns: empty when it is not a URL.
std::string hostOf(const std::string& url);

#endif  // TARQ_LIBRARY_HTTP_CLIENT_H_
