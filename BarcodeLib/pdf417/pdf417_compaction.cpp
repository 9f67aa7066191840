#include <algorithm>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/pdf417/strategy_pdf417.h"

namespace BarcodeVelko {

namespace {

constexpr uint16_t kLatchText = 900;
constexpr uint16_t kLatchByte = 901;
constexpr uint16_t kLatchNumeric = 902;
constexpr uint16_t kLatchByteSix = 924;  // a byte segment of whole groups of six
constexpr size_t kBytesPerGroup = 6;
constexpr size_t kDigitsPerGroup = 44;
constexpr uint16_t kTextPadUpper = 28;  // a latch that the decoder takes as padding
constexpr uint16_t kTextPadPunct = 29;

constexpr uint16_t kTextSubModes[] = {
    StrategyPDF417::MODE_TEXT_UPPER, StrategyPDF417::MODE_TEXT_LOWER,
    StrategyPDF417::MODE_TEXT_MIXED, StrategyPDF417::MODE_TEXT_PUNCT};

uint16_t flagsOf(unsigned char byte) {
    return StrategyPDF417::g_auPDF417Modes[byte];
}

uint16_t textValue(unsigned char byte) {
    return StrategyPDF417::g_auPDF417TextValues[byte & 0x7f];
}

size_t pairIndex(uint16_t from, uint16_t to) {
    return static_cast<size_t>(from) * 9 + to;
}

// The cost rules compare codewords: a latch costs 1 where the decoder is in that mode already
// and 2 otherwise (one more for the latch back).
bool numericPays(size_t digits, uint16_t mode) {
    const size_t asNumeric = (mode == StrategyPDF417::MODE_NUMERIC ? 1 : 2) + digits / 3;
    const size_t asText = (mode == StrategyPDF417::MODE_TEXT ? 1 : 2) + digits / 2;
    return asNumeric < asText;
}

bool textPays(size_t length, uint16_t mode) {
    const size_t asText = (mode == StrategyPDF417::MODE_TEXT ? 1 : 2) + length / 2;
    const size_t asBytes =
        length % 6 + (mode == StrategyPDF417::MODE_BYTE ? 0 : 1) + 5 * (length / 6);
    return asText < asBytes;
}

}  // namespace

void StrategyPDF417::packMessage(const Bytes& bytes, size_t start, size_t end,
                                 Codewords& codewords) {
    codewords.clear();
    end = std::min(end, bytes.size());
    // A symbol opens in text compaction, so a leading text segment needs no latch. Text
    // segments with no latch between them are packed as one, in one run of sub-modes.
    uint16_t mode = MODE_TEXT;
    size_t textStart = start;
    size_t textEnd = start;
    Codewords segment;
    const auto flushText = [&] {
        if (textEnd > textStart) {
            packText(bytes, textStart, textEnd, segment);
            codewords.insert(codewords.end(), segment.begin(), segment.end());
        }
        textStart = textEnd;
    };

    size_t position = start;
    while (position < end) {
        const size_t digits = getTextSequenceLen(bytes, position, end, MODE_NUMERIC);
        if (digits != 0 && numericPays(digits, mode)) {
            flushText();
            if (mode != MODE_NUMERIC) {
                codewords.push_back(kLatchNumeric);
            }
            packNumeric(bytes, position, position + digits, segment);
            codewords.insert(codewords.end(), segment.begin(), segment.end());
            mode = MODE_NUMERIC;
            position += digits;
            continue;
        }

        // Digits that numeric compaction turned down go with the text that follows them.
        size_t runEnd = position + digits;
        while (runEnd < end && (flagsOf(bytes[runEnd]) & (MODE_TEXT | MODE_NUMERIC)) == MODE_TEXT) {
            ++runEnd;
        }
        if (runEnd > position && textPays(runEnd - position, mode)) {
            if (mode != MODE_TEXT) {
                flushText();
                codewords.push_back(kLatchText);
                textStart = position;
            }
            textEnd = runEnd;
            mode = MODE_TEXT;
            position = runEnd;
            continue;
        }

        while (runEnd < end && flagsOf(bytes[runEnd]) == MODE_BYTE) {
            ++runEnd;
        }
        if (runEnd == position) {
            throw BarcodeException::Unexpected();
        }
        flushText();
        const size_t length = runEnd - position;
        codewords.push_back(length % kBytesPerGroup == 0 ? kLatchByteSix : kLatchByte);
        packByte(bytes, position, runEnd, segment);
        codewords.insert(codewords.end(), segment.begin(), segment.end());
        mode = MODE_BYTE;
        position = runEnd;
    }
    flushText();
}

void StrategyPDF417::packText(const Bytes& bytes, size_t start, size_t end, Codewords& codewords) {
    codewords.clear();
    Codewords values;
    uint16_t current = MODE_TEXT_UPPER;
    size_t position = start;
    while (position < end) {
        const size_t run = getTextSequenceLen(bytes, position, end, current);
        if (run != 0) {
            for (size_t i = 0; i < run; ++i) {
                values.push_back(textValue(bytes[position + i]));
            }
            position += run;
            continue;
        }

        // The sub-mode with the longest run wins, upper on a tie; a run of one byte is shifted
        // to where that can be done without leaving the current sub-mode.
        uint16_t best = MODE_TEXT_UPPER;
        size_t bestRun = 0;
        bool shifted = false;
        for (uint16_t target : kTextSubModes) {
            if (target == current) {
                continue;
            }
            const size_t length = getTextSequenceLen(bytes, position, end, target);
            if (target != MODE_TEXT_UPPER && length <= bestRun) {
                continue;
            }
            if (length == 1 && tryTextShift(bytes, position, end, current, target, values)) {
                shifted = true;
                break;
            }
            best = target;
            bestRun = length;
        }
        if (shifted) {
            continue;
        }
        if (bestRun == 0) {
            throw BarcodeException::Unexpected();
        }

        const uint16_t latch = g_auPDF417TextLatches[pairIndex(current, best)];
        if (latch != 0) {
            values.push_back(latch);
        } else {
            const uint16_t transit = g_auPDF417TextTransitLatches[pairIndex(current, best)];
            values.push_back(g_auPDF417TextLatches[pairIndex(current, transit)]);
            values.push_back(g_auPDF417TextLatches[pairIndex(transit, best)]);
        }
        current = best;
    }

    if (values.size() % 2 != 0) {
        values.push_back(current == MODE_TEXT_PUNCT ? kTextPadPunct : kTextPadUpper);
    }
    for (size_t i = 0; i < values.size(); i += 2) {
        codewords.push_back(static_cast<uint16_t>(30 * values[i] + values[i + 1]));
    }
}

bool StrategyPDF417::tryTextShift(const Bytes& bytes, size_t& position, size_t end,
                                  uint16_t current, uint16_t target, Codewords& values) {
    const uint16_t shift = g_auPDF417TextShifts[pairIndex(current, target)];
    uint16_t code = shift;
    if (position + 1 < end) {
        if (shift == 0 || (flagsOf(bytes[position + 1]) & current) == 0) {
            return false;
        }
    } else if (shift == 0) {
        // Nothing follows, so a latch serves as well.
        code = g_auPDF417TextLatches[pairIndex(current, target)];
        if (code == 0) {
            return false;
        }
    }
    values.push_back(code);
    values.push_back(textValue(bytes[position]));
    ++position;
    return true;
}

size_t StrategyPDF417::getTextSequenceLen(const Bytes& bytes, size_t start, size_t end,
                                          uint16_t mask) {
    end = std::min(end, bytes.size());
    size_t position = start;
    while (position < end && (flagsOf(bytes[position]) & mask) != 0) {
        ++position;
    }
    return position > start ? position - start : 0;
}

void StrategyPDF417::packNumeric(const Bytes& bytes, size_t start, size_t end,
                                 Codewords& codewords) {
    codewords.clear();
    for (size_t position = start; position < end; position += kDigitsPerGroup) {
        packNumeric44(bytes, position, std::min(kDigitsPerGroup, end - position), codewords);
    }
}

void StrategyPDF417::packNumeric44(const Bytes& bytes, size_t start, size_t count,
                                   Codewords& codewords) {
    // The digits behind a leading 1, as a decimal number, divided down by 900: each pass gives
    // the next base-900 digit, least significant first.
    std::vector<unsigned> decimal(1, 1);
    for (size_t i = 0; i < count; ++i) {
        decimal.push_back(static_cast<unsigned>(bytes[start + i] - '0'));
    }
    Codewords digits;
    while (!decimal.empty()) {
        std::vector<unsigned> quotient;
        unsigned remainder = 0;
        for (unsigned digit : decimal) {
            remainder = remainder * 10 + digit;
            if (!quotient.empty() || remainder >= 900) {
                quotient.push_back(remainder / 900);
            }
            remainder %= 900;
        }
        digits.push_back(static_cast<uint16_t>(remainder));
        decimal.swap(quotient);
    }
    codewords.insert(codewords.end(), digits.rbegin(), digits.rend());
}

void StrategyPDF417::packByte(const Bytes& bytes, size_t start, size_t end, Codewords& codewords) {
    codewords.clear();
    size_t position = start;
    for (; end - position >= kBytesPerGroup; position += kBytesPerGroup) {
        packByte6(bytes, position, codewords);
    }
    for (; position < end; ++position) {
        codewords.push_back(bytes[position]);
    }
}

void StrategyPDF417::packByte6(const Bytes& bytes, size_t start, Codewords& codewords) {
    uint64_t value = 0;
    for (size_t i = 0; i < kBytesPerGroup; ++i) {
        value = value << 8 | bytes[start + i];
    }
    uint16_t digits[5];
    for (int i = 4; i >= 0; --i) {
        digits[i] = static_cast<uint16_t>(value % 900);
        value /= 900;
    }
    codewords.insert(codewords.end(), digits, digits + 5);
}

}  // namespace BarcodeVelko
