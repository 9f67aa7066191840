#include "BarcodeLib/encode_line.h"

#include <cstring>
#include <new>

#include "BarcodeLib/abstract_barcode_composite.h"
#include "BarcodeLib/barcode_bar.h"
#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/barcode_space.h"
#include "BarcodeLib/smart_ptr.h"

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
            leaf = new (std::nothrow) BarcodeBar(width, 1, control, lastRun);
        } else {
            leaf = new (std::nothrow) BarcodeSpace(width, 1, control, lastRun);
        }
        if (!leaf) {
            throw BarcodeException::OutOfMemory();
        }
        leaf->setCustomData(customData);
        target->add(leaf.get());
        leaf.release();
        start = end;
    }
}

}  // namespace BarcodeVelko
