#pragma once

#include <cstddef>
#include <new>
#include <utility>

namespace BarcodeVelko {

// Storage for leaves. A leaf made alone takes storage of its own; encode_line makes runs in
// blocks, each given back when the last of its leaves is deleted. Every object has a word in
// front that names its block. The leaves of a block go into one composite and are deleted with
// it by one thread, so the count needs no atomics.
class LeafBlock {
public:
    LeafBlock(const LeafBlock&) = delete;
    LeafBlock& operator=(const LeafBlock&) = delete;

    // Room for count objects of at most size bytes; null when memory runs out. The maker holds
    // the block until it calls release.
    static LeafBlock* make(std::size_t count, std::size_t size) noexcept;
    // size bytes of their own for one object; null when memory runs out.
    static void* single(std::size_t size) noexcept;
    // Gives an object's storage back, whether it came alone or from a block.
    static void free(void* object) noexcept;
    // The block that holds an object, null for one made alone.
    static LeafBlock* of(void* object) noexcept;

    std::size_t room() const { return count - used; }
    // Another maker's hold, given up by release.
    void hold() noexcept { ++living; }

    // Builds the next object of the block. A constructor that throws leaves the block as it was.
    template <class T, class... Args>
    T* emplace(Args&&... args) {
        static_assert(alignof(T) <= alignof(void*), "a leaf is aligned as its header word");
        T* object = ::new (nextPlace(sizeof(T))) T(std::forward<Args>(args)...);
        ++used;
        ++living;
        return object;
    }
    void release() noexcept;

    struct Releaser {
        void operator()(LeafBlock* block) const noexcept { block->release(); }
    };

private:
    LeafBlock(std::size_t count, std::size_t slot) : count(count), slot(slot) {}
    void* nextPlace(std::size_t size);
    char* slots();

    std::size_t count;
    std::size_t slot;
    std::size_t used = 0;
    // The objects not yet deleted, and the makers' holds.
    std::size_t living = 1;
};

}  // namespace BarcodeVelko
