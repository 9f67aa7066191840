#include "BarcodeLib/linear_symbol.h"

#include <exception>
#include <new>

#include "BarcodeLib/barcode_column.h"
#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/barcode_row.h"
#include "BarcodeLib/barcode_text.h"
#include "BarcodeLib/smart_ptr.h"

namespace BarcodeVelko {

namespace {

template <class T>
T* makeNode() {
    T* node = new (std::nothrow) T();
    if (node == nullptr) {
        throw BarcodeException::OutOfMemory();
    }
    return node;
}

}  // namespace

void buildLinearSymbol(const std::wstring& raw, AbstractBarcodeElement** element,
                       std::wstring& codeText, const std::function<void(BarcodeRow*)>& fillBars,
                       unsigned textWidth) {
    if (element == nullptr) {
        throw BarcodeException::Unexpected();
    }
    *element = nullptr;
    try {
        SmartPtr<BarcodeColumn> column(makeNode<BarcodeColumn>());
        SmartPtr<BarcodeRow> bars(makeNode<BarcodeRow>());
        fillBars(bars.get());
        if (textWidth == 0) {
            textWidth = bars->getMinWidth();
        }
        column->add(bars.get());
        bars.release();

        SmartPtr<BarcodeRow> textRow(makeNode<BarcodeRow>());
        if (codeText.empty()) {
            codeText = raw;
        }
        // Height 0 until the size visitor gives it the font size, so that the text doesn't
        // count in the minimum width the visitor divides by.
        SmartPtr<BarcodeText> text(new (std::nothrow) BarcodeText(textWidth, 0, codeText.c_str()));
        if (!text) {
            throw BarcodeException::OutOfMemory();
        }
        textRow->add(text.get());
        text.release();
        column->add(textRow.get());
        textRow.release();
        *element = column.release();
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

}  // namespace BarcodeVelko
