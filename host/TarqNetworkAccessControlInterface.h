#ifndef TARQ_NETWORK_ACCESS_CONTROL_INTERFACE_H_
#define TARQ_NETWORK_ACCESS_CONTROL_INTERFACE_H_

#include "TarqHostApi.h"

// Decides whether a device on the network may use the renderer, and hears of such devices.
// The two records are the host's; a plug-in hands the pointers on and never looks inside.
// Threads: any, also at once. Both operations may block for as long as the application takes.
class _TarqNetworkAccessControlInterface {
 public:
  struct _ACCESS_CHECK_INFO;
  struct _ACCESS_NOTIFY_INFO;

  virtual ~_TarqNetworkAccessControlInterface() = default;
  virtual int CheckAccess(_ACCESS_CHECK_INFO* info) = 0;    // the application's decision code
  virtual int DeviceNotify(_ACCESS_NOTIFY_INFO* info) = 0;  // 0
};

// What the hosting application provides. An application may define its own; libtarq's allow everybody (0).
extern "C" {
TARQ_HOST_API int dmrEnqueueJAccessCheckSync(_TarqNetworkAccessControlInterface::_ACCESS_CHECK_INFO* info);
TARQ_HOST_API int dmrEnqueueJDeviceNotify(_TarqNetworkAccessControlInterface::_ACCESS_NOTIFY_INFO* info);
}

#endif  // TARQ_NETWORK_ACCESS_CONTROL_INTERFACE_H_
