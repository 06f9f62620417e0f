#include "TarqDmrAccessControl.h"

#include <new>

#include "TarqDmrPlugin.h"

TarqDmrAccessControl* TarqDmrAccessControl::GetInstance() {
  static TarqDmrAccessControl* const instance = new (std::nothrow) TarqDmrAccessControl();
  return instance;
}

int TarqDmrAccessControl::CheckAccess(_ACCESS_CHECK_INFO* info) { return dmrEnqueueJAccessCheckSync(info); }

int TarqDmrAccessControl::DeviceNotify(_ACCESS_NOTIFY_INFO* info) {
  dmrEnqueueJDeviceNotify(info);
  return 0;
}

_TarqNetworkAccessControlInterface* GetDeviceNac() { return TarqDmrAccessControl::GetInstance(); }
