#include "BarcodeLib/databar/gs1_databar_exp_stack_draw_structure.h"

#include <cstddef>

int GS1DatabarExpStackDrawStructure::GetRowCount() const {
    return static_cast<int>(modules.size());
}

int GS1DatabarExpStackDrawStructure::GetColumnCount() const {
    return modules.empty() ? 0 : static_cast<int>(modules.front().size());
}

void GS1DatabarExpStackDrawStructure::SetRowCount(int rows) {
    modules.resize(static_cast<std::size_t>(rows), std::vector<GS1DatabarExpStackDrawModule>(
                                                       static_cast<std::size_t>(GetColumnCount())));
}

void GS1DatabarExpStackDrawStructure::SetColumnCount(int columns) {
    for (auto& row : modules) {
        row.resize(static_cast<std::size_t>(columns));
    }
}

void GS1DatabarExpStackDrawStructure::AdaptSizes(int row, int column) {
    if (row >= GetRowCount()) {
        SetRowCount(row + 1);
    }
    if (column >= GetColumnCount()) {
        SetColumnCount(column + 1);
    }
}

void GS1DatabarExpStackDrawStructure::DrawBarcodeModule(int row, int column, bool isBar) {
    AdaptSizes(row, column);
    modules[row][column] = {kBarcodeModule, isBar};
}

void GS1DatabarExpStackDrawStructure::DrawSeparatorModule(int row, int column, bool isBar) {
    AdaptSizes(row, column);
    modules[row][column] = {kSeparatorModule, isBar};
}

bool GS1DatabarExpStackDrawStructure::IsModuleBar(int row, int column) {
    AdaptSizes(row, column);
    return modules[row][column].isBar;
}

const GS1DatabarExpStackDrawModule& GS1DatabarExpStackDrawStructure::GetModule(int row,
                                                                               int column) const {
    return modules.at(row).at(column);
}
