#include "TarqDmrParams.h"

#include <android/log.h>

#include <new>

#include "PluginLog.h"
#include "SinkProtocolInfo.h"
#include "TarqDmrPlugin.h"
#include "TarqResourceChecker.h"

TarqDmrParams* TarqDmrParams::GetInstance() {
  static TarqDmrParams* const instance = new (std::nothrow) TarqDmrParams();
  return instance;
}

TarqResourceCheckerInterface* TarqDmrParams::CreateResourceChecker() {
  return new (std::nothrow) TarqResourceChecker(currentRegion_);
}

const char* TarqDmrParams::GetSinkProtocolInfo() {
  __android_log_print(ANDROID_LOG_WARN, kPluginLogTag, "TarqDmrParams::GetSinkProtocolInfo()");
  return TarqDmrMediaProfile_GetProtocolInfo();
}

TarqDmrParamsInterface* GetParams() { return TarqDmrParams::GetInstance(); }
