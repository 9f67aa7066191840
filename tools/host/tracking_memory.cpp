#include "tools/host/tracking_memory.h"

#include <cstdlib>
#include <cstring>

namespace VelkoHost {

namespace {

constexpr std::size_t kGuardSize = 16;
constexpr unsigned char kGuardByte = 0xA5;

}  // namespace

TrackingMemory::~TrackingMemory() {
    for (const auto& entry : live) {
        std::free(const_cast<void*>(entry.first));
    }
}

bool TrackingMemory::allocate(void** where, unsigned long bytes) {
    if (!where || failNext) {
        failNext = false;
        return false;
    }
    auto* buffer = static_cast<unsigned char*>(std::malloc(bytes + kGuardSize));
    if (!buffer) {
        return false;
    }
    std::memset(buffer + bytes, kGuardByte, kGuardSize);
    live[buffer] = bytes;
    *where = buffer;
    return true;
}

bool TrackingMemory::release(const void* buffer) {
    const auto it = live.find(buffer);
    if (it == live.end()) {
        return false;
    }
    live.erase(it);
    std::free(const_cast<void*>(buffer));
    return true;
}

bool TrackingMemory::intact(const void* buffer) const {
    const auto it = live.find(buffer);
    if (it == live.end()) {
        return false;
    }
    const auto* guard = static_cast<const unsigned char*>(buffer) + it->second;
    for (std::size_t i = 0; i < kGuardSize; ++i) {
        if (guard[i] != kGuardByte) {
            return false;
        }
    }
    return true;
}

}  // namespace VelkoHost
