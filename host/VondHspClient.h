#ifndef VOND_HSP_CLIENT_H_
#define VOND_HSP_CLIENT_H_

#include "TarqHostApi.h"
#include "VondHspError.h"
#include "VondString.h"

// The host's HTTP client: one HEAD request to a media server, HTTP/1.1 with DLNA headers. It speaks http
// only, uses no proxy, follows no redirect and opens one connection for each request. Bytes above 127 in the
// path and the query of a URL are percent-encoded; a user and a password in it are not sent.
// Units: 5 s to connect, 15 s for the whole request.
// Source: DLNA guidelines, part 1-1, 7.5.4.

// What a request asks for besides its URL; at first nothing.
class TARQ_HOST_API VondHspDlnaRequest {
 public:
  VondHspDlnaRequest() noexcept;

  // True: send "getcontentFeatures.dlna.org: 1".
  void EnableGetContentFeatures(bool enable) noexcept;
  // "transferMode.dlna.org": 0 Streaming, 1 Interactive, 2 Background; any other value is not sent.
  void SetTransferMode(int mode) noexcept;

 private:
  friend class VondHspClient;

  bool contentFeatures_ = false;
  int transferMode_ = 3;
};

// What the server answered. Header names are compared without case; of two equal ones the first counts.
class TARQ_HOST_API VondHspDlnaResponse {
 public:
  VondHspDlnaResponse() noexcept;

  // Returns: the HTTP status; 0 while there is no answer.
  int GetStatusCode() const noexcept;
  // Returns: the value of "Content-Type" without white space around it.
  // Null: returned when there is none.
  const char* GetContentType() const noexcept;
  // Returns: the value of "contentFeatures.dlna.org" without white space around it.
  // Null: returned when there is none.
  const char* GetContentFeatures() const noexcept;

 private:
  friend class VondHspClient;

  int statusCode_ = 0;
  VondString contentType_;
  VondString contentFeatures_;
};

// Threads: `Cancel` may be called from any thread while another waits in `Head`; all else from one thread.
class TARQ_HOST_API VondHspClient {
 public:
  // `cancellable` false: `Cancel` does nothing.
  explicit VondHspClient(bool cancellable) noexcept;
  ~VondHspClient();
  VondHspClient(const VondHspClient&) = delete;
  VondHspClient& operator=(const VondHspClient&) = delete;

  // Sends the request and waits for the answer. `response` is written only on success.
  // Returns: 0, or a VondHspError.
  // Errors: an answer with a control byte other than a tab in one of the two header values is not valid.
  // Null: a null `url` is refused; `response` must not be null.
  int Head(const char* url, const VondHspDlnaRequest& request, VondHspDlnaResponse* response) noexcept;
  // Returns at once; a waiting `Head` ends with kVondHspCancelled within 50 ms, and so does every later one.
  void Cancel() noexcept;
  // Drops the connection, if there is one.
  void Close() noexcept;

  // For the application, which sees only result codes of checks.
  // Returns: how many requests of this process ended with kVondHspNoResources.
  // Threads: any.
  static unsigned int GetNumOfShortages() noexcept;

 private:
  struct TARQ_HOST_PRIVATE Transfer;

  // Null when there was no memory or no descriptor for it.
  Transfer* transfer_;
};

#endif  // VOND_HSP_CLIENT_H_
