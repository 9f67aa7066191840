#include "layer/foundation/p_current_thread.h"

#include <cerrno>
#include <ctime>

namespace {

constexpr long long kNanosecondsPerSecond = 1000000000LL;

void sleepNanoseconds(long long nanoseconds) {
    if (nanoseconds <= 0) {
        return;
    }
    timespec remaining{static_cast<time_t>(nanoseconds / kNanosecondsPerSecond),
                       static_cast<long>(nanoseconds % kNanosecondsPerSecond)};
    // A signal cuts the sleep short; sleep on for what is left.
    while (nanosleep(&remaining, &remaining) == -1 && errno == EINTR) {
    }
}

}  // namespace

void PCurrentThread::sleep(int milliseconds) {
    sleepNanoseconds(milliseconds * 1000000LL);
}

void PCurrentThread::mSleep(int microseconds) {
    sleepNanoseconds(microseconds * 1000LL);
}

void PCurrentThread::nSleep(int nanoseconds) {
    sleepNanoseconds(nanoseconds);
}
