#ifndef REQUEST_URL_H_
#define REQUEST_URL_H_

#include <curl/curl.h>

// The URL of one request in the form in which it is sent: bytes above 127 in the path and the query are
// percent-encoded. A user and a password are dropped: the server may be any that a control point names.
class RequestUrl {
 public:
  RequestUrl() noexcept = default;
  ~RequestUrl() { curl_url_cleanup(url_); }
  RequestUrl(const RequestUrl&) = delete;
  RequestUrl& operator=(const RequestUrl&) = delete;

  // Returns: 0, kVondHspRefused or kVondHspNoResources.
  // Null: a null `string` is refused.
  int parse(const char* string) noexcept;
  // Returns: false when the host is a literal address.
  bool hasHostName() const noexcept;
  CURLU* get() const noexcept { return url_; }

 private:
  CURLU* url_ = nullptr;
};

#endif  // REQUEST_URL_H_
