#pragma once

// How the row count of a stacked symbol is found.
enum GS1_DATABAR_ROW_COWNT_CALC_METHODS {
    CALC_FIXED_ROW_COUNT = -1,
    CALC_AUTO = 100,
    CALC_SIMPLE_NO_TEXT = 101,
    CALC_MATH = 102,
};

// The rows and the module size in pixels of a GS1 DataBar Expanded Stacked symbol of a number of
// data characters in a picture. A row of b blocks is 49b + 4 modules wide, r rows are
// 34r + 3(r - 1) modules high with the separators between them.
class GS1DatabarExpStackSizesCalculator {
public:
    // n: the data characters. rows: for CALC_FIXED_ROW_COUNT the rows asked for; out: the rows,
    // 0 when none fit. textRows: the lines of human-readable text. False for a picture narrower
    // than one block or lower than one row.
    bool CalcSizes(int method, int width, int height, int n, int& rows, int& textRows,
                   int& moduleSize);

    // The largest module, up to 98 pixels, with which rows rows stay within the width and below
    // the height.
    void CalcSizesFixedRowCount(int& rows, int& textRows, int& moduleSize);
    // The row count from 11 down to 1 with the largest module; the more rows on a tie.
    void CalcSizesAuto(int& rows, int& textRows, int& moduleSize);
    // Growing the module while the fewest rows that fit the width also fit the height.
    void CalcSizesSimpleNoText(int& rows, int& textRows, int& moduleSize);
    // A near-square arrangement of the blocks, the module from the whole picture.
    void CalcSizesMath(int& rows, int& textRows, int& moduleSize);

private:
    static int textRowsFor(int rows);

    int width = 0;
    int height = 0;
    int blocks = 0;
    int maxColumns = 0;
    int maxRows = 0;
    int row = 0;
};
