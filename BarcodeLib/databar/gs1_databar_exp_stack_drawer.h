#pragma once

#include <vector>

#include "BarcodeLib/databar/gs1_databar_exp_stack_draw_structure.h"

// Cuts the element list of a GS1 DataBar Expanded symbol into stacked rows on a grid of
// modules: each data row between guards, every second row mirrored where the blocks per row are
// even, and the separator rows that keep the rows apart for a reader.
class GS1DatabarExpStackDrawer {
public:
    // elements: the list of GS1DatabarExpStackSymbolSignsMaker::MakeBarcodeElements for n data
    // characters. Data rows lie 4 grid rows apart, separator rows between them. When the blocks
    // end before rows rows, the symbol has fewer.
    GS1DatabarExpStackDrawStructure BuildGS1DatabarExpStackDrawStructure(
        const std::vector<int>& elements, int n, int rows);

private:
    void MakeCurrentRow();
    void DrawCurrentRow();
    void DrawSeparators();
    // Keeps the light modules of a finder's spaces apart in the separator row.
    void DrawSeparatorsSearchPatternException(int separatorRow, int dataRow, int offset);
    void DrawInverseOfDataRow(int separatorRow);

    GS1DatabarExpStackDrawStructure structure;
    std::vector<int> elements;
    std::vector<int> rowElements;
    int currentRow = 0;
    int requestedRows = 0;
    int blocksPerRow = 0;
    int blocks = 0;
    int rowBlocks = 0;
    bool leftToRight = true;
    int blocksDone = 0;
    int latch = 0;
    int rowElementCount = 0;
    bool specialRow = false;
    int gridRow = 0;
    int columnsWritten = 0;
};
