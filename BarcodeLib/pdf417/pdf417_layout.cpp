#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/new_or_throw.h"
#include "BarcodeLib/pdf417/strategy_pdf417.h"
#include "BarcodeLib/smart_ptr.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/tree/barcode_column.h"
#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

namespace {

const char kStartPattern[] = "11111111010101000";
const char kStopPattern[] = "111111101000101001";
constexpr unsigned kClusterCount = 3;
constexpr uint16_t kLastCodeword = 928;

}  // namespace

// The indicators tell a reader the row count, the column count and the level, one of the three
// in each indicator, in turn along the three clusters; 30q numbers the group of three rows.
unsigned StrategyPDF417::getLeftRI(unsigned columns, unsigned rows, unsigned level, unsigned row) {
    const unsigned group = 30 * (row / 3);
    switch (row % 3) {
        case 0:
            return group + (rows - 1) / 3;
        case 1:
            return group + (rows - 1) % 3 + 3 * level;
        default:
            return group + columns - 1;
    }
}

unsigned StrategyPDF417::getRightRI(unsigned columns, unsigned rows, unsigned level, unsigned row) {
    const unsigned group = 30 * (row / 3);
    switch (row % 3) {
        case 0:
            return group + columns - 1;
        case 1:
            return group + (rows - 1) / 3;
        default:
            return group + (rows - 1) % 3 + 3 * level;
    }
}

// Every leaf carries the symbol's size for the visitor: columns in the high half, rows in the
// low half.
AbstractBarcodeElement* StrategyPDF417::buildTree(const std::vector<Codewords>& symbolRows,
                                                  unsigned columns, unsigned rows) {
    const unsigned customData = columns << 16 | rows;
    SmartPtr<BarcodeColumn> root(newOrThrow<BarcodeColumn>());
    for (size_t r = 0; r < symbolRows.size(); ++r) {
        const auto& cluster = g_aszPDF417Tables[r % kClusterCount];
        SmartPtr<BarcodeRow> row(newOrThrow<BarcodeRow>());
        encode_line(kStartPattern, row.get(), false, customData, false);
        for (uint16_t codeword : symbolRows[r]) {
            if (codeword > kLastCodeword) {
                throw BarcodeException::Unexpected();
            }
            encode_line(cluster[codeword], row.get(), false, customData, false);
        }
        encode_line(kStopPattern, row.get(), false, customData, true);
        root->add(row.get());
        row.release();
    }
    return root.release();
}

}  // namespace BarcodeVelko
