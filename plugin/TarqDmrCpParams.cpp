#include "TarqDmrCpParams.h"

#include <new>

#include "TarqDmrPlugin.h"

TarqDmrCpParams* TarqDmrCpParams::GetInstance() {
  static TarqDmrCpParams* const instance = new (std::nothrow) TarqDmrCpParams();
  return instance;
}

TarqDmrCpParamsInterface* GetCpParams() { return TarqDmrCpParams::GetInstance(); }
