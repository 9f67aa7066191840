#include "BarcodeLib/databar/strategy_rss14.h"

#include <exception>
#include <string>

#include "BarcodeLib/databar/visitor_size_rss14.h"
#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/new_or_throw.h"
#include "BarcodeLib/smart_ptr.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/linear_symbol.h"
#include "BarcodeLib/strategy/text_layout.h"
#include "BarcodeLib/tree/barcode_row.h"
#include "BarcodeLib/tree/barcode_text.h"

namespace BarcodeVelko {

namespace {

constexpr size_t kValueDigits = 13;
constexpr unsigned kSymbolModules = 96;

// A pair of data characters holds 2841 x 1597 values: the left pair the high part of the
// number, the right pair the low part.
constexpr unsigned long long kPairValues = 4537077;
constexpr unsigned kInsideValues = 1597;
constexpr unsigned kCheckModulus = 79;
constexpr unsigned kFinderCount = 9;

// Check values 8 and 72 would give finder pairs (0, 8) and (8, 0), which the symbol never
// shows; the check values above them move up to keep the pairs apart.
constexpr unsigned kFirstSkippedPair = 8;
constexpr unsigned kSecondSkippedPair = 72;

// The first count characters of text are all digits; text may end sooner.
bool leadsWithDigits(const wchar_t* text, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        if (!isDigit(text[i])) {
            return false;
        }
    }
    return true;
}

// Weights 3, 1, 3 ... from the first of the 13 digits.
wchar_t checkDigitOf(const wchar_t* digits) {
    unsigned sum = 0;
    for (size_t i = 0; i < kValueDigits; ++i) {
        sum += (i % 2 == 0 ? 3u : 1u) * static_cast<unsigned>(digits[i] - L'0');
    }
    return static_cast<wchar_t>(L'0' + (10 - sum % 10) % 10);
}

// The check sum's share of one data character: its widths in its own reading order against
// its eight weights.
unsigned weighedWidths(const unsigned char* widths, const unsigned char* weights) {
    unsigned sum = 0;
    for (size_t i = 0; i < 8; ++i) {
        sum += weights[i] * widths[i];
    }
    return sum;
}

void copyForward(const unsigned char* from, size_t count, unsigned char* to) {
    for (size_t i = 0; i < count; ++i) {
        to[i] = from[i];
    }
}

void copyReversed(const unsigned char* from, size_t count, unsigned char* to) {
    for (size_t i = 0; i < count; ++i) {
        to[i] = from[count - 1 - i];
    }
}

void addLeaf(BarcodeRow* row, AbstractBarcodeRect* leaf) {
    SmartPtr<AbstractBarcodeRect> owned(leaf);
    row->add(leaf);
    owned.release();
}

}  // namespace

bool StrategyRSS14::checkRaw(const wchar_t* code) {
    if (!code) {
        throw BarcodeException::Unexpected();
    }
    return leadsWithDigits(code, kValueDigits + 1) && code[kValueDigits + 1] == L'\0' &&
           code[kValueDigits] == checkDigitOf(code);
}

bool StrategyRSS14::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    if (!value) {
        throw BarcodeException::Unexpected();
    }
    check.clear();
    if (!leadsWithDigits(value, kValueDigits) || value[kValueDigits] != L'\0') {
        return false;
    }
    check.assign(1, checkDigitOf(value));
    return true;
}

bool StrategyRSS14::generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign,
                             int, bool showCS, int, int, int, int, std::wstring& codeText) {
    if (!beginGenerate(code, element, textAlign)) {
        return false;
    }
    const std::wstring raw(code);
    // The check digit stays out of the bars: readers work it out from the 13 digits.
    unsigned long long value = 0;
    for (size_t i = 0; i < kValueDigits; ++i) {
        value = value * 10 + static_cast<unsigned>(raw[i] - L'0');
    }
    unsigned char widths[kElementCount];
    encodeValue(value, widths);

    if (codeText.empty()) {
        codeText = showCS ? raw : raw.substr(0, kValueDigits);
    }
    buildColumn(element,
                {[&](BarcodeRow* row) {
                     // Spaces and bars in turn, a space first.
                     LeafRun runs[kElementCount];
                     for (unsigned i = 0; i < kElementCount; ++i) {
                         runs[i] = {i % 2 == 1, widths[i], 1u, i + 1 == kElementCount};
                     }
                     encode_runs(runs, kElementCount, row);
                 },
                 [&](BarcodeRow* row) {
                     addLeaf(row, newOrThrow<BarcodeText>(kSymbolModules, 1u, codeText.c_str()));
                 }});
    return true;
}

const wchar_t* StrategyRSS14::getDemoValue() {
    return L"1234567890128";
}

const wchar_t* StrategyRSS14::getRawDemoValue() {
    return L"12345678901286";
}

unsigned StrategyRSS14::getDefaultTextAlign() {
    return kTextCentre;
}

AbstractBarcodeVisitor* StrategyRSS14::sizeVisitor(AbstractBarcodeElement* root,
                                                   unsigned canvasWidth, unsigned canvasHeight,
                                                   unsigned fontSize, unsigned, unsigned,
                                                   unsigned) {
    return newSizeVisitor<VisitorSizeRSS14>(root, canvasWidth, canvasHeight, fontSize);
}

unsigned StrategyRSS14::encodeValue(unsigned long long value, unsigned char* widths) {
    if (!widths) {
        throw BarcodeException::Unexpected();
    }
    const unsigned long long left = value / kPairValues;
    const unsigned long long right = value % kPairValues;
    if (left >= kPairValues) {
        throw BarcodeException::Unexpected();
    }
    const unsigned char* a = g_auOutsidePatterns[left / kInsideValues];
    const unsigned char* b = g_auInsidePatterns[left % kInsideValues];
    const unsigned char* c = g_auOutsidePatterns[right / kInsideValues];
    const unsigned char* d = g_auInsidePatterns[right % kInsideValues];

    unsigned check = (weighedWidths(a, g_auWeights) + weighedWidths(b, g_auWeights + 8) +
                      weighedWidths(c, g_auWeights + 16) + weighedWidths(d, g_auWeights + 24)) %
                     kCheckModulus;
    if (check >= kFirstSkippedPair) {
        ++check;
    }
    if (check >= kSecondSkippedPair) {
        ++check;
    }
    const unsigned leftFinder = check / kFinderCount;
    const unsigned rightFinder = check % kFinderCount;

    // Guards, then the characters of the left half outward in, the right half inward out: the
    // inner characters and the right finder are read from the symbol's centre.
    widths[0] = 1;
    widths[1] = 1;
    copyForward(a, 8, widths + 2);
    copyForward(g_auFinders[leftFinder], 5, widths + 10);
    copyReversed(b, 8, widths + 15);
    copyForward(d, 8, widths + 23);
    copyReversed(g_auFinders[rightFinder], 5, widths + 31);
    copyReversed(c, 8, widths + 36);
    widths[44] = 1;
    widths[45] = 1;
    return leftFinder;
}

}  // namespace BarcodeVelko
