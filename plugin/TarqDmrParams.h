#ifndef TARQ_DMR_PARAMS_H_
#define TARQ_DMR_PARAMS_H_

#include "TarqDmrParamsInterface.h"

// The runtime parameters: the current region and what is made for it.
// Ownership: the object is never deleted.
// Threads: the first `GetInstance` comes from one thread. The region is a plain integer: the host sets it
//   while no check and no `GetSinkProtocolInfo` runs.
class TarqDmrParams final : public TarqDmrParamsInterface {
 public:
  static TarqDmrParams* GetInstance();

  TarqResourceCheckerInterface* CreateResourceChecker() override;
  const char* GetSinkProtocolInfo() override;
  void SetCurrentRegion(int region) override { currentRegion_ = region; }
  int GetCurrentRegion() override { return currentRegion_; }

 private:
  TarqDmrParams() = default;

  int currentRegion_ = 0;
};

#endif  // TARQ_DMR_PARAMS_H_
