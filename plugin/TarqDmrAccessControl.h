#ifndef TARQ_DMR_ACCESS_CONTROL_H_
#define TARQ_DMR_ACCESS_CONTROL_H_

#include "TarqNetworkAccessControlInterface.h"

// Passes access checks and device notifications on to the application and adds no rule of its own: the user
// decides who may use the renderer.
// Threads: any, also several at once; a call blocks for as long as the application takes.
class TarqDmrAccessControl final : public _TarqNetworkAccessControlInterface {
 public:
  static TarqDmrAccessControl* GetInstance();

  // Returns: what the application returns.
  int CheckAccess(_ACCESS_CHECK_INFO* info) override;
  // Returns: 0, whatever the application returns.
  int DeviceNotify(_ACCESS_NOTIFY_INFO* info) override;

 private:
  TarqDmrAccessControl() = default;
};

#endif  // TARQ_DMR_ACCESS_CONTROL_H_
