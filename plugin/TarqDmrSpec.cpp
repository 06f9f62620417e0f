#include "TarqDmrSpec.h"

#include <new>

#include "TarqDmrPlugin.h"

TarqDmrSpec* TarqDmrSpec::GetInstance() {
  static constinit TarqDmrSpec* instance = nullptr;
  if (instance == nullptr) instance = new (std::nothrow) TarqDmrSpec();
  return instance;
}

TarqDmrSpecInterface* GetSpec() { return TarqDmrSpec::GetInstance(); }
