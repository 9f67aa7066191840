#pragma once

#include <cstddef>
#include <map>

#include "host/velko_interfaces.h"

namespace VelkoHost {

// The host's allocator, keeping book of every buffer it hands out so that a leak, a double free
// or a write past the end of a buffer shows. Buffers the extension returns are the host's: the
// host gives them back with release().
class TrackingMemory : public IVelkoMemory {
public:
    TrackingMemory() = default;
    TrackingMemory(const TrackingMemory&) = delete;
    TrackingMemory& operator=(const TrackingMemory&) = delete;
    ~TrackingMemory() override;

    bool allocate(void** where, unsigned long bytes) override;

    // False for a pointer that is not a live buffer of ours (never given, or given back before).
    bool release(const void* buffer);
    // False when the bytes behind the buffer's end were written.
    bool intact(const void* buffer) const;

    std::size_t outstanding() const { return live.size(); }
    // The next allocate() answers false, as a host out of memory would.
    void failNextAllocation() { failNext = true; }

private:
    std::map<const void*, std::size_t> live;
    bool failNext = false;
};

}  // namespace VelkoHost
