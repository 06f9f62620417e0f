#ifndef VOND_HSP_ERROR_H_
#define VOND_HSP_ERROR_H_

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
  // By the client itself: the URL is not an http URL, or there is no memory for the request.
  kVondHspRefused = 2108,
  kVondHspTimedOut = 2109,
  kVondHspCancelled = 2110,
};

#endif  // VOND_HSP_ERROR_H_
