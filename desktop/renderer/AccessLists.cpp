#include "AccessLists.h"

#include <algorithm>

AccessLists::AccessLists(TarqDmrSpecInterface& settings, _TarqNetworkAccessControlInterface& control,
                         AccessApplication& application)
    : allowedMax_(static_cast<size_t>(settings.GetAllowedListMax())),
      deniedMax_(static_cast<size_t>(settings.GetDeniedListMax())),
      pendingMax_(static_cast<size_t>(settings.GetPendingListMax())),
      control_(control),
      application_(application) {}

std::optional<bool> AccessLists::known(const std::string& address) {
  const std::lock_guard lock(mutex_);
  return remembered(address);
}

bool AccessLists::isAllowed(const AccessDevice& device) {
  std::unique_lock lock(mutex_);
  answered_.wait(lock, [&] { return !pending_.contains(device.address); });
  if (const std::optional<bool> answer = remembered(device.address)) return *answer;
  if (pending_.size() >= pendingMax_) return false;
  pending_.insert(device.address);
  lock.unlock();
  const bool allowed = ask(device);
  lock.lock();
  pending_.erase(device.address);
  remember(device.address, allowed);
  answered_.notify_all();
  return allowed;
}

std::optional<bool> AccessLists::remembered(const std::string& address) const {
  if (std::ranges::find(allowed_, address) != allowed_.end()) return true;
  if (std::ranges::find(denied_, address) != denied_.end()) return false;
  return std::nullopt;
}

bool AccessLists::ask(const AccessDevice& device) {
  _TarqNetworkAccessControlInterface::_ACCESS_NOTIFY_INFO notice{device, application_};
  control_.DeviceNotify(&notice);
  _TarqNetworkAccessControlInterface::_ACCESS_CHECK_INFO question{device, application_};
  return control_.CheckAccess(&question) == 0;
}

void AccessLists::remember(const std::string& address, bool allowed) {
  Addresses& list = allowed ? allowed_ : denied_;
  list.push_back(address);
  if (list.size() > (allowed ? allowedMax_ : deniedMax_)) list.pop_front();
}
