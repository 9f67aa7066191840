#include "BarcodeLib/qr/strategy_qr.h"

#include <algorithm>
#include <climits>
#include <string>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/new_or_throw.h"
#include "BarcodeLib/qr/qr_code.h"
#include "BarcodeLib/qr/visitor_size_qr.h"
#include "BarcodeLib/smart_ptr.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/text_layout.h"
#include "BarcodeLib/tree/barcode_column.h"
#include "BarcodeLib/tree/barcode_repeated_row.h"
#include "BarcodeLib/tree/barcode_row.h"
#include "layer/foundation/utf8.h"

namespace BarcodeVelko {

bool StrategyQR::checkRaw(const wchar_t* code) {
    if (!code) {
        throw BarcodeException::Unexpected();
    }
    return true;
}

bool StrategyQR::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    return calcNoCheckSymbol(value, check);
}

bool StrategyQR::generate(const wchar_t* code, AbstractBarcodeElement** element, int, int, bool,
                          int first, int second, int, int param, std::wstring& codeText) {
    if (!element || !code) {
        throw BarcodeException::Unexpected();
    }
    *element = nullptr;
    codeText.clear();

    // The encoder counts pixels in 16 bits; a larger picture is capped rather than wrapped.
    const short side = static_cast<short>(std::clamp(std::min(first, second), 0, SHRT_MAX));
    // The symbol stays at one cell a module: its pixel lines repeat each module row, and the
    // tree is built from the rows as they would come out of the scaled matrix.
    QRSymbol symbol;
    if (!QRcode::encodeSymbol(wstr2str(code).c_str(), ConvToErrorCorrectionLevels(param), false,
                              symbol)) {
        return false;
    }
    const int scale = side / symbol.matrix.getSize();
    if (scale < 1) {
        return false;
    }
    *element = buildColumn(symbol.matrix, scale);
    return true;
}

const wchar_t* StrategyQR::getDemoValue() {
    return L"QR example";
}

unsigned StrategyQR::getDefaultTextAlign() {
    return kTextCentre;
}

AbstractBarcodeVisitor* StrategyQR::sizeVisitor(AbstractBarcodeElement* root, unsigned, unsigned,
                                                unsigned, unsigned, unsigned, unsigned) {
    if (!root) {
        throw BarcodeException::Unexpected();
    }
    return newOrThrow<VisitorSizeQR>();
}

ErrorCorrectionLevels StrategyQR::ConvToErrorCorrectionLevels(int level) {
    return isValidLevel(level) ? static_cast<ErrorCorrectionLevels>(level) : LevelM;
}

bool StrategyQR::ConvBitmapMatrix2AbstractBarcodeElement(const BitmapMatrix* matrix,
                                                         AbstractBarcodeElement** element) {
    if (!matrix || !element) {
        return false;
    }
    *element = buildColumn(*matrix, 1);
    return true;
}

AbstractBarcodeElement* StrategyQR::buildColumn(const BitmapMatrix& matrix, int scale) {
    SmartPtr<BarcodeColumn> column(newOrThrow<BarcodeColumn>());
    const int cells = matrix.getSize();
    const int lines = cells * scale;
    std::string line(static_cast<size_t>(lines), '0');
    for (int y = 0; y < cells; ++y) {
        for (int x = 0; x < cells; ++x) {
            const char pixel = matrix.getColor(x, y) == ColorBlack ? '1' : '0';
            std::fill_n(line.begin() + x * scale, scale, pixel);
        }
        BarcodeRow* first = nullptr;
        for (int repeat = 0; repeat < scale; ++repeat) {
            // The very last line ends in the last rect, so it has leaves of its own.
            const bool last = y == cells - 1 && repeat == scale - 1;
            SmartPtr<BarcodeRow> row;
            if (first && !last) {
                row = newOrThrow<BarcodeRepeatedRow>(first);
            } else {
                row = newOrThrow<BarcodeRow>();
                encode_line(line.c_str(), row.get(), false, 0, last);
            }
            column->add(row.get());
            first = first ? first : row.get();
            row.release();
        }
    }
    return column.release();
}

}  // namespace BarcodeVelko
