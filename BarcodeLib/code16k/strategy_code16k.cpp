#include "BarcodeLib/code16k/strategy_code16k.h"

#include <cwchar>
#include <exception>
#include <functional>
#include <string>

#include "BarcodeLib/code16k/visitor_size_code16k.h"
#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/linear/strategy_code128.h"
#include "BarcodeLib/new_or_throw.h"
#include "BarcodeLib/smart_ptr.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/linear_symbol.h"
#include "BarcodeLib/strategy/text_layout.h"
#include "BarcodeLib/tree/barcode_column.h"
#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

namespace {

// Symbol values beside the Code 128 ones. In page C, 104 to 106 shift one to three characters
// to page B; in pages A and B, 98 and 104 shift one or two characters to the other of the two,
// and 105 and 106 two or three pairs to page C.
constexpr unsigned kShift = 98;
constexpr unsigned kCodeC = 99;
constexpr unsigned kCodeB = 100;
constexpr unsigned kCodeA = 101;
constexpr unsigned kPad = 103;
constexpr unsigned kShift2 = 104;
constexpr unsigned kDoubleShift = 105;
constexpr unsigned kTripleShift = 106;
constexpr unsigned kLastValue = 106;
constexpr unsigned kCheckModulus = 107;

// The start modes that this encoder writes: pages A, B and C, and page C after one or two
// characters of page B.
constexpr unsigned kModeA = 0;
constexpr unsigned kModeB = 1;
constexpr unsigned kModeC = 2;
constexpr unsigned kModeCAfterB = 5;
constexpr unsigned kModeCAfterBB = 6;
constexpr unsigned kModesPerRowCount = 7;

// Values beside the data: the mode character and the two check characters.
constexpr size_t kFrameValues = 3;
constexpr size_t kMaxValues = StrategyCode16k::kMaxRows * StrategyCode16k::kValuesPerRow;
constexpr size_t kMinValues = StrategyCode16k::kMinRows * StrategyCode16k::kValuesPerRow;

constexpr unsigned kQuietModules = 5;

bool inPage(wchar_t c, unsigned page) {
    const unsigned code = static_cast<unsigned>(c);
    return (page == StrategyCode16k::kPageA && code <= 95) ||
           (page == StrategyCode16k::kPageB && code >= 32 && code <= 127);
}

// The writer of parseMessage: the text, the position reached, the page, and the values so far
// without the mode character.
class MessageParser {
public:
    MessageParser(const wchar_t* text, size_t length) : text(text), length(length) {}

    bool parse(std::vector<unsigned>& result) {
        start();
        while (position < length) {
            write(page, StrategyCode16k::getSequenceLength(text, length, position, page));
            if (position < length) {
                change();
            }
            // Values are never taken back: once they fill the largest symbol, the text can't fit.
            if (values.size() + kFrameValues >= kMaxValues) {
                return false;
            }
        }
        return finish(result);
    }

private:
    size_t runIn(unsigned runPage, size_t offset = 0) const {
        return StrategyCode16k::getSequenceLength(text, length, position + offset, runPage);
    }

    bool fits(size_t offset, unsigned runPage) const {
        return position + offset <= length && runIn(runPage, offset) != 0;
    }

    // Writes count symbol characters of runPage from the position on.
    void write(unsigned runPage, size_t count) {
        for (size_t i = 0; i < count; ++i) {
            unsigned value = 0;
            const size_t taken = StrategyCode16k::tryPage(text, length, position, runPage, value);
            if (taken == 0) {
                throw BarcodeException::Unexpected();
            }
            values.push_back(value);
            position += taken;
        }
    }

    void start() {
        unsigned value = 0;
        const auto takes = [&](size_t at, unsigned startPage) {
            return StrategyCode16k::tryPage(text, length, at, startPage, value) != 0;
        };
        using S = StrategyCode16k;
        if (takes(0, S::kPageC)) {
            mode = kModeC;
            page = S::kPageC;
        } else if (takes(0, S::kPageB) && takes(1, S::kPageC)) {
            mode = kModeCAfterB;
            write(S::kPageB, 1);
            page = S::kPageC;
        } else if (takes(0, S::kPageB) && takes(1, S::kPageB) && takes(2, S::kPageC)) {
            mode = kModeCAfterBB;
            write(S::kPageB, 2);
            page = S::kPageC;
        } else if (takes(0, S::kPageB)) {
            mode = kModeB;
            page = S::kPageB;
        } else {
            mode = kModeA;
            page = S::kPageA;
        }
        write(page, 1);
    }

    // Called where the run of the current page has ended with text left.
    void change() {
        using S = StrategyCode16k;
        const size_t a = runIn(S::kPageA);
        const size_t b = runIn(S::kPageB);
        const size_t c = runIn(S::kPageC);
        if (page == S::kPageC) {
            if (a < b) {
                if (!shiftPairsOrCharacters(b, S::kPageB, kDoubleShift, kTripleShift)) {
                    latch(kCodeB, S::kPageB);
                }
            } else if (a == 1 && b == 1 && fits(1, S::kPageC)) {
                // Value 104 shifts to page B, not A: a character of page A alone (a control
                // character) needs the latch.
                shift(kShift2, S::kPageB, 1);
            } else {
                latch(kCodeA, S::kPageA);
            }
            return;
        }
        const bool inA = page == S::kPageA;
        const size_t other = inA ? b : a;
        const unsigned otherPage = inA ? S::kPageB : S::kPageA;
        if (2 * c > other) {
            if (!shiftPairsOrCharacters(c, S::kPageC, kDoubleShift, kTripleShift)) {
                latch(kCodeC, S::kPageC);
            }
        } else if (other == 1 && fits(1, page)) {
            shift(kShift, otherPage, 1);
        } else if (other == 2 && fits(2, page)) {
            shift(kShift2, otherPage, 2);
        } else {
            latch(inA ? kCodeB : kCodeA, otherPage);
        }
    }

    // Two or three symbol characters of shiftPage, when the current page goes on behind them.
    bool shiftPairsOrCharacters(size_t run, unsigned shiftPage, unsigned twoValue,
                                unsigned threeValue) {
        const size_t characters = shiftPage == StrategyCode16k::kPageC ? 2 * run : run;
        if ((run == 2 || run == 3) && fits(characters, page)) {
            shift(run == 2 ? twoValue : threeValue, shiftPage, run);
            return true;
        }
        return false;
    }

    void shift(unsigned value, unsigned shiftPage, size_t count) {
        values.push_back(value);
        write(shiftPage, count);
    }

    void latch(unsigned value, unsigned newPage) {
        values.push_back(value);
        page = newPage;
    }

    bool finish(std::vector<unsigned>& result) {
        const size_t total = values.size() + kFrameValues;
        // A full last row still gets a row of pads.
        const size_t perRow = StrategyCode16k::kValuesPerRow;
        size_t pads = perRow - total % perRow;
        if (total + pads < kMinValues) {
            pads = kMinValues - total % perRow;
        }
        const size_t rows = (total + pads) / perRow;
        if (rows > StrategyCode16k::kMaxRows) {
            return false;
        }
        result.reserve(total + pads);
        result.push_back(static_cast<unsigned>(kModesPerRowCount * (rows - 2) + mode));
        result.insert(result.end(), values.begin(), values.end());
        result.insert(result.end(), pads, kPad);

        // The second check character counts the first one in, with the next weight.
        unsigned first = 0;
        unsigned second = 0;
        for (size_t i = 0; i < result.size(); ++i) {
            first = (first + static_cast<unsigned>(i + 2) * result[i]) % kCheckModulus;
            second = (second + static_cast<unsigned>(i + 1) * result[i]) % kCheckModulus;
        }
        second = (second + static_cast<unsigned>(result.size() + 1) * first) % kCheckModulus;
        result.push_back(first);
        result.push_back(second);
        return true;
    }

    const wchar_t* text;
    size_t length;
    size_t position = 0;
    unsigned page = StrategyCode16k::kPageA;
    unsigned mode = kModeA;
    std::vector<unsigned> values;
};

}  // namespace

bool StrategyCode16k::checkRaw(const wchar_t* code) {
    std::vector<unsigned> values;
    try {
        return parseMessage(code, values);
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

bool StrategyCode16k::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    return calcNoCheckSymbol(value, check);
}

bool StrategyCode16k::generate(const wchar_t* code, AbstractBarcodeElement** element, int, int,
                               bool, int, int, int, int, std::wstring& codeText) {
    codeText.clear();
    if (!element) {
        throw BarcodeException::Unexpected();
    }
    *element = nullptr;
    std::vector<unsigned> values;
    if (!parseMessage(code, values)) {
        return false;
    }
    const unsigned rows = static_cast<unsigned>(values.size() / kValuesPerRow);
    const std::string bar(kSymbolModules, '1');
    const std::string quiet(kQuietModules, '0');
    // The separators span the rows from start to stop character.
    const std::string separator = quiet + std::string(kRowModules - kQuietModules, '1') +
                                  std::string(kSymbolModules - kRowModules, '0');
    try {
        SmartPtr<BarcodeColumn> column(newOrThrow<BarcodeColumn>());
        const auto addRow = [&](const std::function<void(BarcodeRow*)>& fill) {
            SmartPtr<BarcodeRow> row(newOrThrow<BarcodeRow>());
            fill(row.get());
            column->add(row.get());
            row.release();
        };
        addRow([&](BarcodeRow* row) { encode_line(bar.c_str(), row, true, rows, false); });
        for (unsigned r = 0; r < rows; ++r) {
            if (r > 0) {
                addRow([&](BarcodeRow* row) {
                    encode_line(separator.c_str(), row, true, rows, false);
                });
            }
            addRow([&](BarcodeRow* row) {
                encode_line(quiet.c_str(), row, false, rows, false);
                encode_line(g_aszCode16kStart[r], row, false, rows, false);
                for (unsigned i = 0; i < kValuesPerRow; ++i) {
                    encodeValue(values[r * kValuesPerRow + i], row, rows);
                }
                encode_line(g_aszCode16kStop[r], row, false, rows, false);
            });
        }
        addRow([&](BarcodeRow* row) { encode_line(bar.c_str(), row, true, rows, true); });
        *element = column.release();
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
    return true;
}

const wchar_t* StrategyCode16k::getDemoValue() {
    return getRawDemoValue();
}

const wchar_t* StrategyCode16k::getRawDemoValue() {
    return L"Code16k";
}

unsigned StrategyCode16k::getDefaultTextAlign() {
    return kTextCentre;
}

AbstractBarcodeVisitor* StrategyCode16k::sizeVisitor(AbstractBarcodeElement* root,
                                                     unsigned canvasWidth, unsigned canvasHeight,
                                                     unsigned, unsigned, unsigned, unsigned) {
    if (!root) {
        throw BarcodeException::Unexpected();
    }
    return newOrThrow<VisitorSizeCode16k>(canvasWidth, canvasHeight);
}

bool StrategyCode16k::parseMessage(const wchar_t* text, std::vector<unsigned>& values) {
    if (!text) {
        throw BarcodeException::Unexpected();
    }
    values.clear();
    try {
        const size_t length = std::wcslen(text);
        if (length == 0) {
            return false;
        }
        for (size_t i = 0; i < length; ++i) {
            if (static_cast<unsigned>(text[i]) > 127) {
                return false;
            }
        }
        if (!MessageParser(text, length).parse(values)) {
            values.clear();
            return false;
        }
        return true;
    } catch (const std::exception&) {
        values.clear();
        throw BarcodeException::OutOfMemory();
    }
}

unsigned StrategyCode16k::getSymbolValue(wchar_t c) {
    const unsigned code = static_cast<unsigned>(c);
    return code > 31 ? code - 32 : code + 64;
}

size_t StrategyCode16k::tryPage(const wchar_t* text, size_t length, size_t position, unsigned page,
                                unsigned& value) {
    if (position >= length) {
        return 0;
    }
    if (page == kPageC) {
        if (position + 1 >= length || !isDigit(text[position]) || !isDigit(text[position + 1])) {
            return 0;
        }
        value = 10 * static_cast<unsigned>(text[position] - L'0') +
                static_cast<unsigned>(text[position + 1] - L'0');
        return 2;
    }
    if (!inPage(text[position], page)) {
        return 0;
    }
    value = getSymbolValue(text[position]);
    return 1;
}

size_t StrategyCode16k::getSequenceLength(const wchar_t* text, size_t length, size_t position,
                                          unsigned page) {
    unsigned value = 0;
    size_t count = 0;
    while (position < length) {
        if (page != kPageC && tryPage(text, length, position, kPageC, value) != 0) {
            break;
        }
        const size_t taken = tryPage(text, length, position, page, value);
        if (taken == 0) {
            break;
        }
        position += taken;
        ++count;
    }
    return count;
}

void StrategyCode16k::encodeValue(unsigned value, AbstractBarcodeComposite* row, unsigned rows) {
    if (value > kLastValue) {
        throw BarcodeException::Unexpected();
    }
    if (value == kLastValue) {
        encode_line(g_szCode16kValue106, row, false, rows, false);
        return;
    }
    // The Code 128 pattern in reverse: each character here starts with a space.
    char pattern[12] = {};
    const char* code128 = StrategyCode128::g_aszCode128Table[value];
    for (size_t i = 0; i < 11; ++i) {
        pattern[i] = code128[i] == '1' ? '0' : '1';
    }
    encode_line(pattern, row, false, rows, false);
}

}  // namespace BarcodeVelko
