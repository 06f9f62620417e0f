#include "VondHspClient.h"

VondHspDlnaRequest::VondHspDlnaRequest() noexcept = default;

void VondHspDlnaRequest::EnableGetContentFeatures(bool enable) noexcept { contentFeatures_ = enable; }
void VondHspDlnaRequest::SetTransferMode(int mode) noexcept { transferMode_ = mode; }

VondHspDlnaResponse::VondHspDlnaResponse() noexcept = default;

int VondHspDlnaResponse::GetStatusCode() const noexcept { return statusCode_; }
const char* VondHspDlnaResponse::GetContentType() const noexcept { return contentType_.c_str(); }
const char* VondHspDlnaResponse::GetContentFeatures() const noexcept { return contentFeatures_.c_str(); }

const char* VondHspErrorText(int error) noexcept {
  switch (error) {
    case 0:
      return "no error";
    case kVondHspConnectFailed:
      return "connection refused or server unreachable";
    case kVondHspNameNotResolved:
      return "server's name not resolved";
    case kVondHspInvalidAnswer:
      return "not a valid HTTP answer";
    case kVondHspConnectionLost:
      return "connection lost while waiting for the answer";
    case kVondHspSendFailed:
      return "sending the request failed";
    case kVondHspRefused:
      return "not a usable URL";
    case kVondHspTimedOut:
      return "no answer in time";
    case kVondHspCancelled:
      return "cancelled";
    case kVondHspNoResources:
      return "out of file descriptors or memory";
    default:
      return "unknown error";
  }
}
