#include "BarcodeLib/linear/ucc_tree_context.h"

#include <cwchar>

#include "BarcodeLib/errors/barcode_exception.h"

namespace BarcodeVelko {

UCCTreeContext::UCCTreeContext(const wchar_t* text) {
    if (!text || *text == L'\0') {
        throw BarcodeException::Unexpected();
    }
    this->text = text;
}

unsigned int UCCTreeContext::charsLeft() const {
    return pos < text.size() ? static_cast<unsigned int>(text.size() - pos) : 0;
}

void UCCTreeContext::setPos(unsigned int position) {
    if (position >= text.size()) {
        throw BarcodeException::Unexpected();
    }
    pos = position;
}

wchar_t UCCTreeContext::get() {
    if (charsLeft() == 0) {
        throw BarcodeException::Unexpected();
    }
    return text[pos++];
}

std::wstring UCCTreeContext::get(int n) {
    if (n < 1 || static_cast<unsigned int>(n) > charsLeft()) {
        throw BarcodeException::Unexpected();
    }
    std::wstring piece = text.substr(pos, static_cast<size_t>(n));
    if (piece.empty()) {
        throw BarcodeException::OutOfMemory();
    }
    pos += static_cast<unsigned int>(n);
    return piece;
}

void UCCTreeContext::unget(int n) {
    if (n < 1 || static_cast<unsigned int>(n) > pos) {
        throw BarcodeException::Unexpected();
    }
    pos -= static_cast<unsigned int>(n);
}

bool UCCTreeContext::trySequence(const wchar_t* sequence) {
    if (!sequence) {
        throw BarcodeException::Unexpected();
    }
    const size_t length = std::wcslen(sequence);
    if (length == 0) {
        throw BarcodeException::OutOfMemory();
    }
    if (length > charsLeft() || text.compare(pos, length, sequence) != 0) {
        return false;
    }
    pos += static_cast<unsigned int>(length);
    return true;
}

}  // namespace BarcodeVelko
