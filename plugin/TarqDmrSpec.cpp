#include "TarqDmrSpec.h"

#include <new>

#include "TarqDmrPlugin.h"

TarqDmrSpec* TarqDmrSpec::GetInstance() {
  static TarqDmrSpec* const instance = new (std::nothrow) TarqDmrSpec();
  return instance;
}

TarqDmrSpecInterface* GetSpec() { return TarqDmrSpec::GetInstance(); }
