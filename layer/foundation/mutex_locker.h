#pragma once

#include <pthread.h>

// Holds a POSIX mutex for a scope. A null mutex makes every operation a no-op.
class MutexLocker {
public:
    explicit MutexLocker(pthread_mutex_t* mutex, bool deferred = false);
    ~MutexLocker();
    MutexLocker(const MutexLocker&) = delete;
    MutexLocker& operator=(const MutexLocker&) = delete;

    void Lock();
    void Unlock();

private:
    pthread_mutex_t* mutex;
    // Only a mutex this locker holds is unlocked, so a deferred or released one is left alone.
    bool locked = false;
};
