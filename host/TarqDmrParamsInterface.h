#ifndef TARQ_DMR_PARAMS_INTERFACE_H_
#define TARQ_DMR_PARAMS_INTERFACE_H_

#include "TarqResourceCheckerInterface.h"

// What changes at run time: the region, and what depends on it.
class TarqDmrParamsInterface {
 public:
  virtual ~TarqDmrParamsInterface() = default;

  // Returns: a new checker for the current region, which it keeps.
  // Null: returned on allocation failure.
  // Ownership: the caller deletes it.
  // Threads: any, also several at once, while no thread sets the region.
  virtual TarqResourceCheckerInterface* CreateResourceChecker() = 0;

  // Returns: the SinkProtocolInfo string of the ConnectionManager service for the current region, never null.
  // Ownership: the string belongs to the plug-in and lives until the next call.
  // Threads: any, one at a time.
  virtual const char* GetSinkProtocolInfo() = 0;

  // Any value is accepted.
  // Threads: any, while no check and no `GetSinkProtocolInfo` runs.
  // Units: a bit set of regions.
  virtual void SetCurrentRegion(int region) = 0;
  // Returns: the region set last; 0 before that.
  virtual int GetCurrentRegion() = 0;
};

#endif  // TARQ_DMR_PARAMS_INTERFACE_H_
