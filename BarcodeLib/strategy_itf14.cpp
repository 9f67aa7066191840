#include "BarcodeLib/strategy_itf14.h"

#include <exception>
#include <new>
#include <string>

#include "BarcodeLib/barcode_column.h"
#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/barcode_row.h"
#include "BarcodeLib/barcode_text.h"
#include "BarcodeLib/encode_line.h"
#include "BarcodeLib/smart_ptr.h"
#include "BarcodeLib/visitor_size_itf14.h"

namespace BarcodeVelko {

namespace {

const size_t kDigits = 14;
const unsigned kWidth = 134;
const char kLeftFrame[] = "11110000000000";
const char kRightFrame[] = "00000000001111";

template <class T, class... Args>
T* create(Args... args) {
    T* node = new (std::nothrow) T(args...);
    if (!node) {
        throw BarcodeException::OutOfMemory();
    }
    return node;
}

void addRow(BarcodeColumn& column, SmartPtr<BarcodeRow>& row) {
    column.add(row.get());
    row.release();
}

// A horizontal bearer: one control bar across the whole symbol.
void addBearer(BarcodeColumn& column) {
    SmartPtr<BarcodeRow> row(create<BarcodeRow>());
    encode_line(std::string(kWidth, '1').c_str(), row.get(), true, 0, true);
    addRow(column, row);
}

}  // namespace

bool StrategyITF14::checkRaw(const wchar_t* code) {
    return countDigits(code) == kDigits && hasCheckDigit(code, kDigits);
}

bool StrategyITF14::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    if (countDigits(value) != kDigits - 1) {
        return false;
    }
    check.assign(1, checkDigit(value, kDigits - 1));
    return true;
}

bool StrategyITF14::generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign,
                             int, bool, int, int, int, int, std::wstring& codeText) {
    beginGenerate(element, textAlign);
    if (!checkRaw(code)) {
        return false;
    }
    try {
        SmartPtr<BarcodeColumn> column(create<BarcodeColumn>());
        addBearer(*column);

        SmartPtr<BarcodeRow> symbol(create<BarcodeRow>());
        encode_line(kLeftFrame, symbol.get(), false, 0, false);
        insertSymbol(code, symbol.get(), false);
        encode_line(kRightFrame, symbol.get(), false, 0, true);
        addRow(*column, symbol);

        addBearer(*column);

        if (codeText.empty()) {
            codeText = code;
        }
        SmartPtr<BarcodeRow> textRow(create<BarcodeRow>());
        SmartPtr<BarcodeText> text(create<BarcodeText>(kWidth, 0u, codeText.c_str()));
        textRow->add(text.get());
        text.release();
        addRow(*column, textRow);

        *element = column.release();
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
    return true;
}

const wchar_t* StrategyITF14::getDemoValue() {
    return L"1123456789012";
}

const wchar_t* StrategyITF14::getRawDemoValue() {
    return L"11234567890125";
}

unsigned StrategyITF14::getDefaultTextAlign() {
    return 3;
}

AbstractBarcodeVisitor* StrategyITF14::sizeVisitor(AbstractBarcodeElement* root,
                                                   unsigned canvasWidth, unsigned canvasHeight,
                                                   unsigned fontSize, unsigned, unsigned,
                                                   unsigned) {
    if (!root) {
        throw BarcodeException::Unexpected();
    }
    return create<VisitorSizeITF14>(root->getMinWidth(), root->getMinHeight(), canvasWidth,
                                    canvasHeight, fontSize);
}

}  // namespace BarcodeVelko
