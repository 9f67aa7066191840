#pragma once

#include <algorithm>
#include <condition_variable>
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
    std::condition_variable ready;
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
            ready.notify_one();
        }
    };
    std::vector<std::thread> workers;
    const unsigned count32 = static_cast<unsigned>(std::min<size_t>(count, threads));
    for (unsigned i = 0; i < std::max(count32, 1u); ++i) {
        workers.emplace_back(work);
    }
    for (size_t item = 0; item < count; ++item) {
        std::unique_lock<std::mutex> lock(mutex);
        ready.wait(lock, [&] { return results[item].has_value(); });
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
