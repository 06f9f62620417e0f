#include "TarqDmrCpParams.h"

#include <new>

#include "TarqDmrPlugin.h"

TarqDmrCpParams* TarqDmrCpParams::GetInstance() {
  static constinit TarqDmrCpParams* instance = nullptr;
  if (instance == nullptr) instance = new (std::nothrow) TarqDmrCpParams();
  return instance;
}

TarqDmrCpParamsInterface* GetCpParams() { return TarqDmrCpParams::GetInstance(); }
