#include "ItemQueue.h"

#include <algorithm>

bool ItemQueue::put(LibraryItem item) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return hasRoom() || isClosed_; });
  if (isClosed_) return false;
  bytes_ += item.didl.size();
  items_.push_back(std::move(item));
  changed_.notify_one();
  return true;
}

void ItemQueue::finish() {
  const std::lock_guard lock(mutex_);
  isFinished_ = true;
  changed_.notify_one();
}

std::vector<LibraryItem> ItemQueue::take(size_t count) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return !items_.empty() || isFinished_; });
  std::vector<LibraryItem> taken;
  for (count = std::min(count, items_.size()); count > 0; --count) {
    bytes_ -= items_.front().didl.size();
    taken.push_back(std::move(items_.front()));
    items_.pop_front();
  }
  changed_.notify_one();
  return taken;
}

void ItemQueue::close() {
  const std::lock_guard lock(mutex_);
  isClosed_ = true;
  changed_.notify_one();
}
