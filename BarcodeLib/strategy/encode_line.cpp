#include "BarcodeLib/strategy/encode_line.h"

#include <algorithm>
#include <memory>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/abstract_barcode_composite.h"
#include "BarcodeLib/tree/barcode_bar.h"
#include "BarcodeLib/tree/barcode_space.h"
#include "BarcodeLib/tree/leaf_block.h"

namespace BarcodeVelko {

namespace {

// Leaves of a block: a symbol's patterns are mostly a few runs each, and one after another fill
// the same block, which stays under 1 KiB, where malloc keeps freed blocks at hand.
constexpr std::size_t kBlockLeaves = 24;
constexpr std::size_t kLeafSize = std::max(sizeof(BarcodeBar), sizeof(BarcodeSpace));

// The block of the target's last run, where it has room for as many more.
LeafBlock* blockToGoOn(const AbstractBarcodeComposite& target, std::size_t runs) {
    AbstractBarcodeElement* last = target.lastChild();
    if (last == nullptr || !last->isRun()) {
        return nullptr;
    }
    LeafBlock* block = LeafBlock::of(dynamic_cast<void*>(last));
    return block != nullptr && block->room() >= runs ? block : nullptr;
}

// A block for runs more leaves, held by the caller until it releases it.
LeafBlock* heldBlock(const AbstractBarcodeComposite& target, std::size_t runs) {
    if (LeafBlock* block = blockToGoOn(target, runs)) {
        block->hold();
        return block;
    }
    LeafBlock* block = LeafBlock::make(std::max(runs, kBlockLeaves), kLeafSize);
    if (block == nullptr) {
        throw BarcodeException::OutOfMemory();
    }
    return block;
}

// The target's room for runs more leaves, and a block to make them in.
std::unique_ptr<LeafBlock, LeafBlock::Releaser> blockFor(AbstractBarcodeComposite& target,
                                                         std::size_t runs) {
    if (!target.makeRoomFor(runs)) {
        throw BarcodeException::OutOfMemory();
    }
    return std::unique_ptr<LeafBlock, LeafBlock::Releaser>(heldBlock(target, runs));
}

// Into the room that blockFor made.
template <class Leaf>
void appendLeaf(LeafBlock& block, AbstractBarcodeComposite& target, const LeafRun& run,
                bool control, unsigned customData) {
    Leaf* leaf = block.emplace<Leaf>(run.width, run.height, control, run.last);
    leaf->setCustomData(customData);
    target.addInRoom(leaf);
}

void appendRun(LeafBlock& block, AbstractBarcodeComposite& target, const LeafRun& run, bool control,
               unsigned customData) {
    if (run.dark) {
        appendLeaf<BarcodeBar>(block, target, run, control, customData);
    } else {
        appendLeaf<BarcodeSpace>(block, target, run, control, customData);
    }
}

}  // namespace

void encode_line(const char* pattern, AbstractBarcodeComposite* target, bool control,
                 unsigned customData, bool last) {
    if (pattern == nullptr || target == nullptr) {
        throw BarcodeException::Unexpected();
    }
    // Checked whole first, so that a bad pattern leaves the target as it was.
    std::size_t length = 0;
    std::size_t runs = 0;
    for (const char* module = pattern; *module != '\0'; ++module, ++length) {
        if (*module != '0' && *module != '1') {
            throw BarcodeException::Unexpected();
        }
        runs += length == 0 || *module != module[-1] ? 1 : 0;
    }
    if (length == 0) {
        return;
    }
    const auto block = blockFor(*target, runs);
    const char* const end = pattern + length;
    const char* start = pattern;
    for (const char* module = pattern + 1;; ++module) {
        if (module == end || *module != *start) {
            const LeafRun run{*start == '1', static_cast<unsigned>(module - start), 1u,
                              last && module == end};
            appendRun(*block, *target, run, control, customData);
            if (module == end) {
                break;
            }
            start = module;
        }
    }
}

void encode_runs(const LeafRun* runs, std::size_t count, AbstractBarcodeComposite* target) {
    if (target == nullptr || (runs == nullptr && count > 0)) {
        throw BarcodeException::Unexpected();
    }
    if (count == 0) {
        return;
    }
    const auto block = blockFor(*target, count);
    for (const LeafRun* run = runs; run < runs + count; ++run) {
        appendRun(*block, *target, *run, false, 0);
    }
}

}  // namespace BarcodeVelko
