#include "TarqNetworkAccessControlInterface.h"

int dmrEnqueueJAccessCheckSync(_TarqNetworkAccessControlInterface::_ACCESS_CHECK_INFO*) { return 0; }
int dmrEnqueueJDeviceNotify(_TarqNetworkAccessControlInterface::_ACCESS_NOTIFY_INFO*) { return 0; }
