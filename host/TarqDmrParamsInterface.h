#ifndef TARQ_DMR_PARAMS_INTERFACE_H_
#define TARQ_DMR_PARAMS_INTERFACE_H_

#include "TarqResourceCheckerInterface.h"

// What changes at run time: the region, and what follows from it.
class TarqDmrParamsInterface {
 public:
  virtual ~TarqDmrParamsInterface() = default;
  // A new checker for the current region; the caller deletes it. Null: no memory.
  virtual TarqResourceCheckerInterface* CreateResourceChecker() = 0;
  // The SinkProtocolInfo text of the ConnectionManager service, never null; valid until the next call.
  // One caller at a time.
  virtual const char* GetSinkProtocolInfo() = 0;
  // A bit set; 0 until it is set. Set it while no check and no `GetSinkProtocolInfo` runs.
  virtual void SetCurrentRegion(int region) = 0;
  virtual int GetCurrentRegion() = 0;
};

#endif  // TARQ_DMR_PARAMS_INTERFACE_H_
