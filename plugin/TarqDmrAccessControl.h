#ifndef TARQ_DMR_ACCESS_CONTROL_H_
#define TARQ_DMR_ACCESS_CONTROL_H_

#include "TarqNetworkAccessControlInterface.h"

// Hands access checks and device notifications on to the hosting application and adds no rule of its own:
// who may use the renderer is the user's decision.
// Threads: any, also at once; a call blocks for as long as the application takes.
class TarqDmrAccessControl final : public _TarqNetworkAccessControlInterface {
 public:
  static TarqDmrAccessControl* GetInstance();

  int CheckAccess(_ACCESS_CHECK_INFO* info) override;    // the application's answer, unchanged
  int DeviceNotify(_ACCESS_NOTIFY_INFO* info) override;  // 0, whatever the application answers

 private:
  TarqDmrAccessControl() = default;
};

#endif  // TARQ_DMR_ACCESS_CONTROL_H_
