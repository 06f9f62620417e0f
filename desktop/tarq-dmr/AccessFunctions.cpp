#include "AccessRecord.h"

// The application's two functions, in place of libtarq's: whoever asks brings the application along.

int dmrEnqueueJAccessCheckSync(_TarqNetworkAccessControlInterface::_ACCESS_CHECK_INFO* info) {
  constexpr int kAllowed = 0;
  constexpr int kDenied = 1;
  return info->application.allows(info->device) ? kAllowed : kDenied;
}

int dmrEnqueueJDeviceNotify(_TarqNetworkAccessControlInterface::_ACCESS_NOTIFY_INFO* info) {
  info->application.deviceSeen(info->device);
  return 0;
}
