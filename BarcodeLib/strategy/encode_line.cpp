#include "BarcodeLib/strategy/encode_line.h"

#include <cstring>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/new_or_throw.h"
#include "BarcodeLib/smart_ptr.h"
#include "BarcodeLib/tree/abstract_barcode_composite.h"
#include "BarcodeLib/tree/barcode_bar.h"
#include "BarcodeLib/tree/barcode_space.h"

namespace BarcodeVelko {

void encode_line(const char* pattern, AbstractBarcodeComposite* target, bool control,
                 unsigned customData, bool last) {
    if (pattern == nullptr || target == nullptr) {
        throw BarcodeException::Unexpected();
    }
    // Checked whole first, so that a bad pattern leaves the target as it was.
    const size_t length = std::strlen(pattern);
    if (std::strspn(pattern, "01") != length) {
        throw BarcodeException::Unexpected();
    }
    size_t start = 0;
    while (start < length) {
        size_t end = start + 1;
        while (end < length && pattern[end] == pattern[start]) {
            ++end;
        }
        const unsigned width = static_cast<unsigned>(end - start);
        const bool lastRun = last && end == length;
        SmartPtr<AbstractBarcodeRect> leaf;
        if (pattern[start] == '1') {
            leaf = newOrThrow<BarcodeBar>(width, 1u, control, lastRun);
        } else {
            leaf = newOrThrow<BarcodeSpace>(width, 1u, control, lastRun);
        }
        leaf->setCustomData(customData);
        target->add(leaf.get());
        leaf.release();
        start = end;
    }
}

}  // namespace BarcodeVelko
