#include "BarcodeLib/strategy/linear_symbol.h"

#include <exception>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/new_or_throw.h"
#include "BarcodeLib/smart_ptr.h"
#include "BarcodeLib/tree/barcode_column.h"
#include "BarcodeLib/tree/barcode_row.h"
#include "BarcodeLib/tree/barcode_text.h"

namespace BarcodeVelko {

void buildColumn(AbstractBarcodeElement** element,
                 std::initializer_list<std::function<void(BarcodeRow*)>> fillRows) {
    if (!element) {
        throw BarcodeException::Unexpected();
    }
    *element = nullptr;
    try {
        SmartPtr<BarcodeColumn> column(newOrThrow<BarcodeColumn>());
        for (const auto& fill : fillRows) {
            SmartPtr<BarcodeRow> row(newOrThrow<BarcodeRow>());
            fill(row.get());
            column->add(row.get());
            row.release();
        }
        *element = column.release();
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

void insertText(AbstractBarcodeComposite* row, unsigned width, const std::wstring& text,
                unsigned customData) {
    if (!row) {
        throw BarcodeException::Unexpected();
    }
    SmartPtr<BarcodeText> leaf(newOrThrow<BarcodeText>(width, 0u, text.c_str()));
    leaf->setCustomData(customData);
    row->add(leaf.get());
    leaf.release();
}

void buildLinearSymbol(const std::wstring& raw, AbstractBarcodeElement** element,
                       std::wstring& codeText, const std::function<void(BarcodeRow*)>& fillBars,
                       unsigned textWidth) {
    buildColumn(element, {[&](BarcodeRow* bars) {
                              fillBars(bars);
                              if (textWidth == 0) {
                                  textWidth = bars->getMinWidth();
                              }
                          },
                          [&](BarcodeRow* row) {
                              if (codeText.empty()) {
                                  codeText = raw;
                              }
                              // Height 0 until the size visitor gives it the font size, so that
                              // the text doesn't count in the minimum width the visitor divides
                              // by.
                              insertText(row, textWidth, codeText);
                          }});
}

}  // namespace BarcodeVelko
