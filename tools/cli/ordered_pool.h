#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace VelkoCli {

// Runs a job for each of count items on a number of threads, and hands the results over on the
// calling thread in the items' order as soon as each one and those before it are done. Each
// thread first calls makeJob, which gives it its own state (an object of the library, say).
template <class Result>
void runInOrder(size_t count, unsigned threads,
                const std::function<std::function<Result(size_t)>()>& makeJob,
                const std::function<void(size_t, Result&)>& deliver) {
    std::vector<std::optional<Result>> results(count);
    std::mutex mutex;
    size_t next = 0;
    auto work = [&] {
        const std::function<Result(size_t)> job = makeJob();
        for (;;) {
            size_t item = 0;
            {
                std::lock_guard<std::mutex> lock(mutex);
                if (next == count) {
                    return;
                }
                item = next++;
            }
            Result result = job(item);
            std::lock_guard<std::mutex> lock(mutex);
            results[item] = std::move(result);
        }
    };
    std::vector<std::thread> workers;
    const unsigned count32 = static_cast<unsigned>(std::min<size_t>(count, threads));
    for (unsigned i = 0; i < std::max(count32, 1u); ++i) {
        workers.emplace_back(work);
    }
    // The calling thread looks now and then instead of being woken for every item: a wake-up
    // costs about as much as a small item.
    constexpr std::chrono::milliseconds kLook(2);
    for (size_t item = 0; item < count; ++item) {
        std::unique_lock<std::mutex> lock(mutex);
        while (!results[item].has_value()) {
            lock.unlock();
            std::this_thread::sleep_for(kLook);
            lock.lock();
        }
        Result result = std::move(*results[item]);
        results[item].reset();
        lock.unlock();
        deliver(item, result);
    }
    for (std::thread& worker : workers) {
        worker.join();
    }
}

}  // namespace VelkoCli
