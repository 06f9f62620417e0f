#ifndef VOND_MUTEX_H_
#define VOND_MUTEX_H_

#include <pthread.h>

#include "TarqHostApi.h"

// A plain mutex, not recursive.
// Threads: any; the thread that locked it unlocks it.
class TARQ_HOST_API VondMutex {
 public:
  VondMutex() noexcept;
  ~VondMutex();
  VondMutex(const VondMutex&) = delete;
  VondMutex& operator=(const VondMutex&) = delete;

  void Lock() noexcept;
  void Unlock() noexcept;

 private:
  pthread_mutex_t mutex_;
};

#endif  // VOND_MUTEX_H_
