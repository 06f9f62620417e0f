#ifndef TARQ_NETWORK_ACCESS_CONTROL_INTERFACE_H_
#define TARQ_NETWORK_ACCESS_CONTROL_INTERFACE_H_

#include "TarqHostApi.h"

// Decides whether a device on the network may use the renderer, and is told about such devices.
// Null: a null record is passed on like any other.
// Ownership: the records are the host's; a plug-in passes the pointers on and never looks inside.
// Threads: any, also several at once. Both operations may block for as long as the application takes.
class _TarqNetworkAccessControlInterface {
 public:
  struct _ACCESS_CHECK_INFO;
  struct _ACCESS_NOTIFY_INFO;

  virtual ~_TarqNetworkAccessControlInterface() = default;
  // Returns: the application's decision code.
  virtual int CheckAccess(_ACCESS_CHECK_INFO* info) = 0;
  // Returns: 0.
  virtual int DeviceNotify(_ACCESS_NOTIFY_INFO* info) = 0;
};

// What the application provides. libtarq has a version of both that applications replace with their own.
// Returns: libtarq's return 0, which allows every device.
extern "C" {
TARQ_HOST_API int dmrEnqueueJAccessCheckSync(_TarqNetworkAccessControlInterface::_ACCESS_CHECK_INFO* info);
TARQ_HOST_API int dmrEnqueueJDeviceNotify(_TarqNetworkAccessControlInterface::_ACCESS_NOTIFY_INFO* info);
}

#endif  // TARQ_NETWORK_ACCESS_CONTROL_INTERFACE_H_
