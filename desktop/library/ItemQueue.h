#ifndef TARQ_LIBRARY_ITEM_QUEUE_H_
#define TARQ_LIBRARY_ITEM_QUEUE_H_

#include <condition_variable>
#include <deque>
#include <mutex>
#include <vector>

#include "LibraryItem.h"

// Items on their way from whoever browses to whoever checks. It has room for so much that neither waits for a moment of
// the other, and no more.
// Threads: one that puts, one that takes.
class ItemQueue {
 public:
  // Waits for room.
  // Returns: false when nobody takes any more.
  bool put(LibraryItem item);
  void finish();  // nothing more comes

  // Waits for items.
  // Returns: at most so many; none at the end.
  std::vector<LibraryItem> take(size_t count);
  void close();  // nothing more is taken

 private:
  static constexpr size_t kMaxItems = 1024;
  static constexpr size_t kMaxBytes = size_t{8} << 20;

  bool hasRoom() const { return items_.empty() || (items_.size() < kMaxItems && bytes_ < kMaxBytes); }

  std::mutex mutex_;  // for all below
  std::condition_variable changed_;
  std::deque<LibraryItem> items_;
  size_t bytes_ = 0;
  bool isFinished_ = false;
  bool isClosed_ = false;
};

#endif  // TARQ_LIBRARY_ITEM_QUEUE_H_
