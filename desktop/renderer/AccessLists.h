#ifndef TARQ_ACCESS_LISTS_H_
#define TARQ_ACCESS_LISTS_H_

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <set>
#include <string>

#include "AccessRecord.h"
#include "TarqDmrSpecInterface.h"

// Asks the plug-in about every new address and remembers its answer, in lists of the sizes that the plug-in's
// settings give. The oldest entry of a full list is forgotten and asked for again.
// Threads: any, also several at once.
class AccessLists {
 public:
  AccessLists(TarqDmrSpecInterface& settings, _TarqNetworkAccessControlInterface& control,
              AccessApplication& application);

  // Returns: the remembered answer, without asking; none: it has to be asked for.
  std::optional<bool> known(const std::string& address);

  // Blocks while it asks.
  // Returns: whether the device may use the renderer; when its address is being asked for already, the same answer.
  //   false when too many addresses are being asked for.
  bool isAllowed(const AccessDevice& device);

 private:
  using Addresses = std::deque<std::string>;  // the oldest first

  std::optional<bool> remembered(const std::string& address) const;
  bool ask(const AccessDevice& device);
  void remember(const std::string& address, bool allowed);

  const size_t allowedMax_;
  const size_t deniedMax_;
  const size_t pendingMax_;
  _TarqNetworkAccessControlInterface& control_;
  AccessApplication& application_;
  std::mutex mutex_;  // of all below
  std::condition_variable answered_;
  Addresses allowed_;
  Addresses denied_;
  std::set<std::string> pending_;
};

#endif  // TARQ_ACCESS_LISTS_H_
