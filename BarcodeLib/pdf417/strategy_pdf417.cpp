#include "BarcodeLib/pdf417/strategy_pdf417.h"

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/guarded.h"
#include "BarcodeLib/new_or_throw.h"
#include "BarcodeLib/pdf417/visitor_size_pdf417.h"
#include "BarcodeLib/strategy/text_layout.h"
#include "layer/foundation/utf8.h"

namespace BarcodeVelko {

namespace {

constexpr uint16_t kPad = 900;

// The largest c with c * c <= x.
unsigned squareRoot(unsigned x) {
    unsigned root = 0;
    while ((root + 1) * (root + 1) <= x) {
        ++root;
    }
    return root;
}

unsigned ceilDiv(unsigned a, unsigned b) {
    return (a + b - 1) / b;
}

}  // namespace

bool StrategyPDF417::checkRaw(const wchar_t* code) {
    if (!code) {
        throw BarcodeException::Unexpected();
    }
    return guarded([&] {
        unsigned columns = 0;
        unsigned rows = 0;
        std::vector<Codewords> symbolRows;
        return convertMessage(code, columns, rows, 0, symbolRows);
    });
}

bool StrategyPDF417::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    return calcNoCheckSymbol(value, check);
}

bool StrategyPDF417::generate(const wchar_t* code, AbstractBarcodeElement** element, int, int, bool,
                              int first, int second, int ecl, int, std::wstring& codeText) {
    if (!element || !code) {
        throw BarcodeException::Unexpected();
    }
    *element = nullptr;
    codeText.clear();

    return guarded([&] {
        // The automatic size first; a wished column or row count then replaces its half alone.
        unsigned columns = 0;
        unsigned rows = 0;
        const unsigned level = ecl < 0 ? kLevelCount : static_cast<unsigned>(ecl);
        std::vector<Codewords> symbolRows;
        convertMessage(code, columns, rows, level, symbolRows);
        if (first >= 1 && first <= static_cast<int>(kMaxColumns) - 1) {
            columns = static_cast<unsigned>(first);
        }
        if (second >= static_cast<int>(kMinRows) && second <= static_cast<int>(kMaxRows) - 1) {
            rows = static_cast<unsigned>(second);
        }
        if (!convertMessage(code, columns, rows, level, symbolRows)) {
            return false;
        }
        *element = buildTree(symbolRows, columns, rows);
        return true;
    });
}

const wchar_t* StrategyPDF417::getDemoValue() {
    return L"PDF417 example";
}

unsigned StrategyPDF417::getDefaultTextAlign() {
    return kTextCentre;
}

AbstractBarcodeVisitor* StrategyPDF417::sizeVisitor(AbstractBarcodeElement* root,
                                                    unsigned canvasWidth, unsigned canvasHeight,
                                                    unsigned, unsigned, unsigned aspectX,
                                                    unsigned aspectY) {
    if (!root) {
        throw BarcodeException::Unexpected();
    }
    return newOrThrow<VisitorSizePDF417>(canvasWidth, canvasHeight, aspectX, aspectY);
}

bool StrategyPDF417::convertMessage(const wchar_t* text, unsigned& columns, unsigned& rows,
                                    unsigned level, std::vector<Codewords>& symbolRows) {
    symbolRows.clear();
    if (!text) {
        throw BarcodeException::Unexpected();
    }
    if (level >= kLevelCount) {
        return false;
    }
    if ((columns != 0 || rows != 0) &&
        ((rows != 0 && (rows < kMinRows || rows > kMaxRows)) || columns > kMaxColumns)) {
        return false;
    }

    const std::string utf8 = wstr2str(text);
    if (utf8.size() > kMaxBytes) {
        return false;
    }
    const Bytes bytes(utf8.begin(), utf8.end());
    Codewords data;
    try {
        packMessage(bytes, 0, bytes.size(), data);
    } catch (const BarcodeException::AbstractBarcodeException&) {
        return false;
    }
    const unsigned length = static_cast<unsigned>(data.size()) + 1;  // with the length descriptor
    const unsigned total = length + (2u << level);
    if (columns == 0 && rows == 0) {
        columns = std::min(squareRoot(total), kMaxColumns);
        rows = ceilDiv(total, columns);
        if (rows > kMaxRows) {
            return false;
        }
    } else if (columns == 0) {
        columns = ceilDiv(total, rows);
        if (columns > kMaxColumns) {
            return false;
        }
    } else if (rows == 0) {
        rows = std::max(ceilDiv(total, columns), kMinRows);
        if (rows > kMaxRows) {
            return false;
        }
    }

    // Pad codewords fill the last row and any rows wished beyond the text.
    unsigned padding = (columns - total % columns) % columns;
    const unsigned needed = (total + padding) / columns;
    if (needed > rows) {
        return false;
    }
    padding += (rows - needed) * columns;
    if (total + padding > kMaxCodewords) {
        return false;
    }

    Codewords codewords;
    codewords.reserve(total + padding);
    codewords.push_back(static_cast<uint16_t>(length + padding));
    codewords.insert(codewords.end(), data.begin(), data.end());
    codewords.insert(codewords.end(), padding, kPad);
    Codewords correction;
    calcEC(codewords, level, correction);
    codewords.insert(codewords.end(), correction.begin(), correction.end());

    symbolRows.resize(rows);
    for (unsigned r = 0; r < rows; ++r) {
        Codewords& row = symbolRows[r];
        row.reserve(columns + 2);
        row.push_back(static_cast<uint16_t>(getLeftRI(columns, rows, level, r)));
        row.insert(row.end(), codewords.begin() + r * columns,
                   codewords.begin() + (r + 1) * columns);
        row.push_back(static_cast<uint16_t>(getRightRI(columns, rows, level, r)));
    }
    return true;
}

}  // namespace BarcodeVelko
