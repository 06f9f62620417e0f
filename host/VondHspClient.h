#ifndef VOND_HSP_CLIENT_H_
#define VOND_HSP_CLIENT_H_

#include "TarqHostApi.h"
#include "VondString.h"

// The host's HTTP client: one HEAD request to a media server (HTTP/1.1 with the headers of the DLNA
// guidelines, part 1-1, 7.5.4). http only, no proxy, no redirect followed, one connection a request. Time
// limits: 5 s to connect, 15 s for the whole request.

// What is asked for beside the URL.
class TARQ_HOST_API VondHspDlnaRequest {
 public:
  VondHspDlnaRequest() noexcept;

  void EnableGetContentFeatures(bool enable) noexcept;  // true: send "getcontentFeatures.dlna.org: 1"
  // "transferMode.dlna.org": 0 Streaming, 1 Interactive, 2 Background, any other value: not sent.
  void SetTransferMode(int mode) noexcept;

  bool GetContentFeaturesEnabled() const noexcept;
  int GetTransferMode() const noexcept;

 private:
  static constexpr int kNoTransferMode = 3;

  bool contentFeatures_;
  int transferMode_;
};

// What the server answered. Header names compare without case; of two equal headers the first counts.
class TARQ_HOST_API VondHspDlnaResponse {
 public:
  VondHspDlnaResponse() noexcept;

  int GetStatusCode() const noexcept;           // 0 while there is no answer
  const char* GetContentType() const noexcept;  // "Content-Type" without white space around it; null: none
  const char* GetContentFeatures() const noexcept;  // "contentFeatures.dlna.org"; null: none

 private:
  friend class VondHspClient;

  int statusCode_;
  VondString contentType_;
  VondString contentFeatures_;
};

// Client error codes: what `Head` returns when no answer came. 0 is success, whatever the HTTP status.
enum VondHspError : int {
  kVondHspConnectFailed = 2103,  // refused or unreachable
  kVondHspNameNotResolved = 2104,
  kVondHspInvalidAnswer = 2105,   // what came is no HTTP answer
  kVondHspConnectionLost = 2106,  // while waiting for the answer
  kVondHspSendFailed = 2107,
  kVondHspRefused = 2108,  // by this client: no http URL, or no memory for the request
  kVondHspTimedOut = 2109,
  kVondHspCancelled = 2110,
};

// Threads: `Cancel` may be called from any thread while another waits in `Head`; all else from one thread.
class TARQ_HOST_API VondHspClient {
 public:
  // `cancellable`: false makes `Cancel` do nothing.
  explicit VondHspClient(bool cancellable) noexcept;
  ~VondHspClient();
  VondHspClient(const VondHspClient&) = delete;
  VondHspClient& operator=(const VondHspClient&) = delete;

  // Sends HEAD and waits for the answer. 0, or a VondHspError. `url` null: 2108. `response` must not be null;
  // it is written only on success.
  int Head(const char* url, const VondHspDlnaRequest& request, VondHspDlnaResponse* response) noexcept;
  // Returns at once; a waiting `Head` ends with 2110 within 50 ms, a later one ends with it at once.
  void Cancel() noexcept;
  void Close() noexcept;  // drops the connection; called again it does nothing

 private:
  struct Transfer;
  Transfer* transfer_;  // null when there was no memory for it
};

#endif  // VOND_HSP_CLIENT_H_
