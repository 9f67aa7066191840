#include "BarcodeLib/databar/gs1_databar_exp_stack_drawer.h"

#include <algorithm>

namespace {

constexpr int kBlockElements = 21;
constexpr int kBlockModules = 49;
constexpr int kGridRowsPerDataRow = 4;
constexpr int kLightEdge = 4;
// Where the first finder's search for light pairs starts in a separator row.
constexpr int kFinderOffset = 18;
constexpr int kSpecialFinderOffset = 19;
constexpr int kFinderSearchSpan = 14;

}  // namespace

GS1DatabarExpStackDrawStructure GS1DatabarExpStackDrawer::BuildGS1DatabarExpStackDrawStructure(
    const std::vector<int>& elements, int n, int rows) {
    structure = GS1DatabarExpStackDrawStructure();
    this->elements = elements;
    requestedRows = rows;
    blocks = (n + 2) / 2;
    blocksDone = 0;
    gridRow = 0;
    if (rows < 1 || blocks < 1) {
        return structure;
    }
    blocksPerRow = (blocks + rows - 1) / rows;
    for (currentRow = 1; currentRow <= requestedRows && blocksDone < blocks; ++currentRow) {
        MakeCurrentRow();
        DrawCurrentRow();
        DrawSeparators();
        blocksDone += rowBlocks;
        gridRow += kGridRowsPerDataRow;
    }
    return structure;
}

void GS1DatabarExpStackDrawer::MakeCurrentRow() {
    rowElements = {1, 1};
    rowBlocks = std::min(blocksPerRow, blocks - blocksDone);
    // Readers of ISO/IEC 24724 expect every element in the colour it has in the one-row symbol.
    // With an even number of blocks a row, the even rows are mirrored and begin with a bar. The
    // standard's one exception is the last row drawn when it is even, short of the others and
    // holds an odd number of blocks: mirrored, its colours would come out inverted, so it reads
    // left to right, one module further in behind a wider guard. With an odd number of blocks a
    // row the colours alternate from row to row by themselves: no row is mirrored or shifted.
    // The requested row count plays no part, since the blocks may end before it.
    const bool lastRow = blocksDone + rowBlocks == blocks;
    specialRow = lastRow && currentRow % 2 == 0 && blocksPerRow % 2 == 0 &&
                 rowBlocks < blocksPerRow && rowBlocks % 2 != 0;
    leftToRight = blocksPerRow % 2 != 0 || currentRow % 2 != 0 || specialRow;
    latch = currentRow % 2 != 0 ? 0 : 1;

    const int size = static_cast<int>(elements.size());
    const int from = kBlockElements * blocksDone + 2;
    const int count = kBlockElements * blocksPerRow;
    if (leftToRight) {
        // Up to the very end, the list's own closing guard included.
        const int end = std::min(from + count, size);
        rowElements.insert(rowElements.end(), elements.begin() + from, elements.begin() + end);
    } else {
        for (int i = std::min(from + count - 1, size - 3); i >= from; --i) {
            rowElements.push_back(elements[i]);
        }
    }
    rowElements.push_back(1);
    rowElements.push_back(1);
    if (specialRow) {
        rowElements[0] = 2;
        latch = 0;
    }
    rowElementCount = static_cast<int>(rowElements.size());
}

void GS1DatabarExpStackDrawer::DrawCurrentRow() {
    int column = 0;
    for (int e = 0; e < rowElementCount; ++e) {
        for (int m = 0; m < rowElements[e]; ++m) {
            structure.DrawBarcodeModule(gridRow, column++, latch == 1);
        }
        latch ^= 1;
    }
    columnsWritten = column;
}

void GS1DatabarExpStackDrawer::DrawSeparators() {
    if (currentRow != 1) {
        const int middle = gridRow - 2;
        for (int x = 0; x < kLightEdge; ++x) {
            structure.DrawSeparatorModule(middle, x, false);
        }
        for (int x = kLightEdge; x < kBlockModules * blocksPerRow; x += 2) {
            structure.DrawSeparatorModule(middle, x, false);
            structure.DrawSeparatorModule(middle, x + 1, true);
        }
        DrawInverseOfDataRow(gridRow - 1);
        DrawSeparatorsSearchPatternException(gridRow - 1, gridRow,
                                             specialRow ? kSpecialFinderOffset : kFinderOffset);
    }
    if (currentRow != requestedRows) {
        DrawInverseOfDataRow(gridRow + 1);
        DrawSeparatorsSearchPatternException(gridRow + 1, gridRow, kFinderOffset);
    }
}

void GS1DatabarExpStackDrawer::DrawInverseOfDataRow(int separatorRow) {
    for (int x = 0; x < kLightEdge; ++x) {
        structure.DrawSeparatorModule(separatorRow, x, false);
    }
    for (int x = kLightEdge; x <= columnsWritten - 5; ++x) {
        structure.DrawSeparatorModule(separatorRow, x, !structure.IsModuleBar(gridRow, x));
    }
}

void GS1DatabarExpStackDrawer::DrawSeparatorsSearchPatternException(int separatorRow, int dataRow,
                                                                    int offset) {
    auto light = [&](int row, int x) { return !structure.IsModuleBar(row, x); };
    for (int block = 0; block < rowBlocks; ++block) {
        const int k = offset + kBlockModules * block;
        if (leftToRight) {
            for (int x = k - 1; x <= k + kFinderSearchSpan - 1; ++x) {
                if (light(dataRow, x) && light(dataRow, x + 1) && !light(separatorRow, x)) {
                    structure.DrawSeparatorModule(separatorRow, x + 1, false);
                }
            }
        } else {
            for (int x = k + kFinderSearchSpan + 1; x >= k + 1; --x) {
                if (light(dataRow, x) && light(dataRow, x - 1) && !light(separatorRow, x)) {
                    structure.DrawSeparatorModule(separatorRow, x - 1, false);
                }
            }
        }
    }
}
