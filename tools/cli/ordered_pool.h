#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace VelkoCli {

// Runs a job for each of count items on a number of threads, and hands the results over on the
// calling thread in the items' order as soon as each one and those before it are done. Each
// thread first calls makeJob, which gives it its own state (an object of the library, say). The
// first exception of a thread stops the run and is thrown again on the calling thread.
template <class Result>
void runInOrder(size_t count, unsigned threads,
                const std::function<std::function<Result(size_t)>()>& makeJob,
                const std::function<void(size_t, Result&)>& deliver) {
    std::vector<std::optional<Result>> results(count);
    std::mutex mutex;
    size_t next = 0;
    std::exception_ptr failure;
    auto work = [&] {
        try {
            const std::function<Result(size_t)> job = makeJob();
            for (;;) {
                size_t item = 0;
                {
                    std::lock_guard<std::mutex> lock(mutex);
                    if (next == count || failure) {
                        return;
                    }
                    item = next++;
                }
                Result result = job(item);
                std::lock_guard<std::mutex> lock(mutex);
                results[item] = std::move(result);
            }
        } catch (...) {
            std::lock_guard<std::mutex> lock(mutex);
            if (!failure) {
                failure = std::current_exception();
            }
        }
    };
    std::vector<std::thread> workers;
    const size_t started = std::max<size_t>(std::min<size_t>(count, threads), 1);
    for (size_t i = 0; i < started; ++i) {
        workers.emplace_back(work);
    }
    // The calling thread looks now and then instead of being woken for every item: a wake-up
    // costs about as much as a small item.
    constexpr std::chrono::milliseconds kLook(2);
    for (size_t item = 0; item < count; ++item) {
        std::unique_lock<std::mutex> lock(mutex);
        while (!results[item].has_value() && !failure) {
            lock.unlock();
            std::this_thread::sleep_for(kLook);
            lock.lock();
        }
        if (failure) {
            break;
        }
        Result result = std::move(*results[item]);
        results[item].reset();
        lock.unlock();
        deliver(item, result);
    }
    for (std::thread& worker : workers) {
        worker.join();
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
}

}  // namespace VelkoCli
