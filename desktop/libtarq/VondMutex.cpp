#include "VondMutex.h"

VondMutex::VondMutex() noexcept { pthread_mutex_init(&mutex_, nullptr); }
VondMutex::~VondMutex() { pthread_mutex_destroy(&mutex_); }
void VondMutex::Lock() noexcept { pthread_mutex_lock(&mutex_); }
void VondMutex::Unlock() noexcept { pthread_mutex_unlock(&mutex_); }
