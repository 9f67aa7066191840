#pragma once

#include <memory>
#include <utility>

// Copy-on-write handle: copies share one block until a writer detaches. The counts are the
// standard shared pointer's and safe across threads; the block itself is not guarded.
template <class T>
class PSharedDataPtr {
public:
    PSharedDataPtr() = default;
    explicit PSharedDataPtr(std::shared_ptr<T> block) : d(std::move(block)) {}
    virtual ~PSharedDataPtr() = default;
    PSharedDataPtr(const PSharedDataPtr&) = default;
    PSharedDataPtr& operator=(const PSharedDataPtr&) = default;
    PSharedDataPtr(PSharedDataPtr&&) noexcept = default;
    PSharedDataPtr& operator=(PSharedDataPtr&&) noexcept = default;

    virtual void detach() {
        if (d && d.use_count() > 1) {
            d = std::make_shared<T>(*d);
        }
    }

    // The way in for writing.
    T* operator->() {
        detach();
        return d.get();
    }
    const T* operator->() const { return d.get(); }

private:
    std::shared_ptr<T> d;
};
