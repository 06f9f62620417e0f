#ifndef CHECKER_H_
#define CHECKER_H_

#include <memory>
#include <string>

#include "LoadedPlugin.h"

// A new checker of the built plug-in for that region.
inline std::unique_ptr<TarqResourceCheckerInterface> newChecker(int region = 1) {
  LoadedPlugin::instance();
  TarqDmrParamsInterface* params = TarqDmrPluginManager::GetInstance()->GetParams();
  params->SetCurrentRegion(region);
  return std::unique_ptr<TarqResourceCheckerInterface>(params->CreateResourceChecker());
}

// What a check came to: "code" alone, or "0 resIndex mimeType [additionalInfo] operation format";
// "-" is null.
inline std::string outcomeOf(TarqResourceCheckerInterface& checker, int code) {
  if (code != 0) return std::to_string(code);
  const auto text = [](const char* value) {
    return value == nullptr ? std::string("-") : std::string(value);
  };
  const TarqResourceInfo& info = *checker.GetResource();
  return "0 " + std::to_string(info.resIndex) + " " + text(info.mimeType) + " [" + text(info.additionalInfo) +
         "] " + text(info.operation) + " " +
         (info.contentFormat == nullptr ? "-" : text(info.contentFormat->c_str()));
}

#endif  // CHECKER_H_
