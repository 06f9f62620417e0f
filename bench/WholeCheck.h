#ifndef WHOLE_CHECK_H_
#define WHOLE_CHECK_H_

#include <cstdlib>
#include <memory>
#include <string>

#include "TarqDmrPluginManager.h"

// One check from a new checker to its deletion. The plug-in is loaded.
// Returns: the chosen `res`.
inline int wholeCheck(const std::string& metadata) {
  const std::unique_ptr<TarqResourceCheckerInterface> checker(
      TarqDmrPluginManager::GetInstance()->GetParams()->CreateResourceChecker());
  // "item" is not a URL: there are no quick tests, and no server is asked.
  if (checker->CheckResource("item", metadata.c_str()) != 0) std::abort();
  return checker->GetResource()->resIndex;
}

#endif  // WHOLE_CHECK_H_
