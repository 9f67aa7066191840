#include "BarcodeLib/strategy_qr.h"

#include <algorithm>
#include <climits>
#include <memory>
#include <string>

#include "BarcodeLib/QR/qr_code.h"
#include "BarcodeLib/barcode_column.h"
#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/barcode_row.h"
#include "BarcodeLib/encode_line.h"
#include "BarcodeLib/new_or_throw.h"
#include "BarcodeLib/smart_ptr.h"
#include "BarcodeLib/visitor_size_qr.h"
#include "host/text_forms.h"

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
    std::unique_ptr<BitmapMatrix> matrix;
    if (!QRcode::generateQRBitmapMatrix(wstr2str(code).c_str(), ConvToErrorCorrectionLevels(param),
                                        side, matrix, false)) {
        return false;
    }
    return ConvBitmapMatrix2AbstractBarcodeElement(matrix.get(), element);
}

const wchar_t* StrategyQR::getDemoValue() {
    return L"QR example";
}

unsigned StrategyQR::getDefaultTextAlign() {
    return 0;
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
    SmartPtr<BarcodeColumn> column(newOrThrow<BarcodeColumn>());
    const int size = matrix->getSize();
    std::string line(static_cast<size_t>(size), '0');
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            line[static_cast<size_t>(x)] = matrix->getColor(x, y) == ColorBlack ? '1' : '0';
        }
        SmartPtr<BarcodeRow> row(newOrThrow<BarcodeRow>());
        encode_line(line.c_str(), row.get(), false, 0, y == size - 1);
        column->add(row.get());
        row.release();
    }
    *element = column.release();
    return true;
}

}  // namespace BarcodeVelko
