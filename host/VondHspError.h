#ifndef VOND_HSP_ERROR_H_
#define VOND_HSP_ERROR_H_

#include "TarqHostApi.h"

// What `VondHspClient::Head` returns when no answer came. 0 is success, whatever the HTTP status.
enum VondHspError : int {
  // Refused or unreachable.
  kVondHspConnectFailed = 2103,
  kVondHspNameNotResolved = 2104,
  // What came is not an HTTP answer.
  kVondHspInvalidAnswer = 2105,
  // While the client was waiting for the answer.
  kVondHspConnectionLost = 2106,
  kVondHspSendFailed = 2107,
  // By the client itself: the URL is not an http URL, or no request can be made of it.
  kVondHspRefused = 2108,
  // Also at once, without a lookup, when 32 name lookups that hang were abandoned within the last 60 s.
  kVondHspTimedOut = 2109,
  kVondHspCancelled = 2110,
  // Not the server's fault: this process or the system has no descriptor or memory left for the request.
  kVondHspNoResources = 2111,
};

// For logs and users.
// Returns: an error in words, never null.
TARQ_HOST_API const char* VondHspErrorText(int error) noexcept;

#endif  // VOND_HSP_ERROR_H_
