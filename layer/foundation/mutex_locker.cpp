#include "layer/foundation/mutex_locker.h"

MutexLocker::MutexLocker(pthread_mutex_t* mutex, bool deferred) : mutex(mutex) {
    if (!deferred) {
        Lock();
    }
}

MutexLocker::~MutexLocker() {
    Unlock();
}

void MutexLocker::Lock() {
    if (mutex && !locked) {
        pthread_mutex_lock(mutex);
        locked = true;
    }
}

void MutexLocker::Unlock() {
    if (mutex && locked) {
        pthread_mutex_unlock(mutex);
        locked = false;
    }
}
