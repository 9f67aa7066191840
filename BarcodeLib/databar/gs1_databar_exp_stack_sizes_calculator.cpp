#include "BarcodeLib/databar/gs1_databar_exp_stack_sizes_calculator.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kBlockModules = 49;
constexpr int kGuardModules = 4;
constexpr int kRowModules = 34;
constexpr int kSeparatorModules = 3;
constexpr int kMaxModuleSize = 99;
constexpr int kMaxAutoRows = 11;

int ceilDiv(int a, int b) {
    return (a + b - 1) / b;
}

int symbolWidth(int blocks, int rows) {
    return kBlockModules * ceilDiv(blocks, rows) + kGuardModules;
}

int symbolHeight(int rows) {
    return kRowModules * rows + kSeparatorModules * (rows - 1);
}

}  // namespace

bool GS1DatabarExpStackSizesCalculator::CalcSizes(int method, int width, int height, int n,
                                                  int& rows, int& textRows, int& moduleSize) {
    this->width = width;
    this->height = height;
    blocks = (n + 2) / 2;
    maxColumns = (width - kGuardModules) / kBlockModules;
    maxRows = (height + kSeparatorModules) / (kRowModules + kSeparatorModules);
    if (maxColumns < 1 || maxRows < 1) {
        return false;
    }
    switch (method) {
        case CALC_FIXED_ROW_COUNT:
            CalcSizesFixedRowCount(rows, textRows, moduleSize);
            break;
        case CALC_AUTO:
            CalcSizesAuto(rows, textRows, moduleSize);
            break;
        case CALC_SIMPLE_NO_TEXT:
            CalcSizesSimpleNoText(rows, textRows, moduleSize);
            break;
        case CALC_MATH:
            CalcSizesMath(rows, textRows, moduleSize);
            break;
        default:
            rows = 0;
            break;
    }
    return true;
}

void GS1DatabarExpStackSizesCalculator::CalcSizesFixedRowCount(int& rows, int& textRows,
                                                               int& moduleSize) {
    moduleSize = 0;
    if (rows < 1 || rows > blocks) {
        rows = 0;
        return;
    }
    const int w = symbolWidth(blocks, rows);
    const int h = symbolHeight(rows);
    // The symbol stays strictly lower than the picture. A picture that takes 99 modules still
    // finds no answer.
    for (int m = 1; m <= kMaxModuleSize; ++m) {
        if (m * w > width || m * h >= height) {
            moduleSize = m - 1;
            break;
        }
    }
    if (moduleSize == 0) {
        rows = 0;
    }
    textRows = textRowsFor(rows);
}

void GS1DatabarExpStackSizesCalculator::CalcSizesAuto(int& rows, int& textRows, int& moduleSize) {
    int bestRows = 0;
    int bestSize = 0;
    for (row = kMaxAutoRows; row >= 1; --row) {
        int tried = row;
        int size = 0;
        int lines = 0;
        CalcSizesFixedRowCount(tried, lines, size);
        if (tried > 0 && size > bestSize) {
            bestRows = tried;
            bestSize = size;
        }
    }
    rows = bestRows;
    moduleSize = bestSize;
    textRows = textRowsFor(rows);
}

void GS1DatabarExpStackSizesCalculator::CalcSizesSimpleNoText(int& rows, int& textRows,
                                                              int& moduleSize) {
    rows = 0;
    moduleSize = 0;
    for (int m = 1; m <= kMaxModuleSize; ++m) {
        int found = 0;
        for (row = 1; row <= blocks; ++row) {
            if (symbolWidth(blocks, row) * m <= width) {
                found = symbolHeight(row) * m <= height ? row : 0;
                break;
            }
        }
        if (found == 0) {
            break;
        }
        rows = found;
        moduleSize = m;
    }
    textRows = textRowsFor(rows);
}

void GS1DatabarExpStackSizesCalculator::CalcSizesMath(int& rows, int& textRows, int& moduleSize) {
    const int columns =
        std::min(static_cast<int>(std::ceil(std::sqrt(static_cast<double>(blocks)))), maxColumns);
    rows = ceilDiv(blocks, columns);
    textRows = textRowsFor(rows);
    moduleSize = std::min(maxRows / rows, maxColumns / ceilDiv(blocks, rows));
}

int GS1DatabarExpStackSizesCalculator::textRowsFor(int rows) {
    return std::max(rows / 2, 1);
}
