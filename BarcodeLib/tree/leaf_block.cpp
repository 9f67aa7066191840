#include "BarcodeLib/tree/leaf_block.h"

#include "BarcodeLib/errors/barcode_exception.h"

namespace BarcodeVelko {

namespace {

// The word in front of each object. A leaf needs no more than a pointer's alignment, and a word
// keeps a block of leaves small enough for the allocator's fast path.
constexpr std::size_t kHeader = sizeof(void*);

constexpr std::size_t padded(std::size_t size) {
    return (size + kHeader - 1) / kHeader * kHeader;
}

LeafBlock** headerOf(void* object) {
    return reinterpret_cast<LeafBlock**>(static_cast<char*>(object) - kHeader);
}

}  // namespace

LeafBlock* LeafBlock::make(std::size_t count, std::size_t size) noexcept {
    const std::size_t slot = kHeader + padded(size);
    void* memory = ::operator new(padded(sizeof(LeafBlock)) + count * slot, std::nothrow);
    return memory == nullptr ? nullptr : ::new (memory) LeafBlock(count, slot);
}

void* LeafBlock::single(std::size_t size) noexcept {
    void* memory = ::operator new(kHeader + size, std::nothrow);
    if (memory == nullptr) {
        return nullptr;
    }
    *static_cast<LeafBlock**>(memory) = nullptr;
    return static_cast<char*>(memory) + kHeader;
}

void LeafBlock::free(void* object) noexcept {
    if (object == nullptr) {
        return;
    }
    LeafBlock** header = headerOf(object);
    if (*header == nullptr) {
        ::operator delete(header);
    } else {
        (*header)->release();
    }
}

LeafBlock* LeafBlock::of(void* object) noexcept {
    return *headerOf(object);
}

void LeafBlock::release() noexcept {
    if (--living == 0) {
        this->~LeafBlock();
        ::operator delete(this);
    }
}

char* LeafBlock::slots() {
    return reinterpret_cast<char*>(this) + padded(sizeof(LeafBlock));
}

void* LeafBlock::nextPlace(std::size_t size) {
    if (used == count || kHeader + size > slot) {
        throw BarcodeException::Unexpected();
    }
    char* header = slots() + used * slot;
    *reinterpret_cast<LeafBlock**>(header) = this;
    return header + kHeader;
}

}  // namespace BarcodeVelko
