#pragma once

// Sleeps of the calling thread. Mind the units: milli-, micro- and nanoseconds.
class PCurrentThread {
public:
    static void sleep(int milliseconds);
    static void mSleep(int microseconds);
    static void nSleep(int nanoseconds);
};
