#pragma once

#include <vector>

// One cell of the grid of a stacked symbol. kind: 0 nothing, 1 a module of a data row, 2 a
// module of a separator row.
struct GS1DatabarExpStackDrawModule {
    int kind = 0;
    bool isBar = false;
};

// The grid of a stacked symbol, a module a cell, rows of equal length. Every access grows it to
// take the cell in; new cells are of kind 0.
class GS1DatabarExpStackDrawStructure {
public:
    static constexpr int kNothing = 0;
    static constexpr int kBarcodeModule = 1;
    static constexpr int kSeparatorModule = 2;

    int GetRowCount() const;
    int GetColumnCount() const;
    void SetRowCount(int rows);
    void SetColumnCount(int columns);
    void AdaptSizes(int row, int column);
    void DrawBarcodeModule(int row, int column, bool isBar);
    void DrawSeparatorModule(int row, int column, bool isBar);
    bool IsModuleBar(int row, int column);
    const GS1DatabarExpStackDrawModule& GetModule(int row, int column) const;

private:
    std::vector<std::vector<GS1DatabarExpStackDrawModule>> modules;
};
