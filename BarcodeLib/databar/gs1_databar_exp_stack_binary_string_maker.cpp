#include "BarcodeLib/databar/gs1_databar_exp_stack_binary_string_maker.h"

#include <cstddef>
#include <stdexcept>

#include "BarcodeLib/databar/gs1_databar_exp_stack_tables.h"

namespace {

constexpr char kSeparator = 29;

constexpr const char* kLinkageFlag = "0";
constexpr const char* kMethod1 = "1";
constexpr const char* kMethod2 = "00";
constexpr const char* kVariableLengthPlace = "00";

// Latches of the general-purpose field; from alphanumeric or ISO/IEC 646 back to numeric it is
// kToNumeric, and the separator in either of them returns to numeric of itself.
constexpr const char* kNumericToAlphaNumeric = "0000";
constexpr const char* kToNumeric = "000";
constexpr const char* kAlphaNumericToISO = "00100";
constexpr const char* kISOToAlphaNumeric = "00100";
constexpr const char* kPadding = "00100";

// A compressed GTIN: the digit at index 2, then four groups of three; the check digit at index
// 15 is left out, the reader works it out again.
constexpr size_t kCompressedLength = 16;
constexpr size_t kCompressedFirstDigit = 2;
constexpr size_t kCompressedGroupCount = 4;

constexpr size_t kCharacterBits = 12;
constexpr size_t kMinDataBits = 36;   // three data characters
constexpr size_t kMaxDataBits = 252;  // 21 data characters
constexpr int kLargeSymbolCharacters = 14;

constexpr int kSeparatorPairValue = 10;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isUpper(char c) {
    return c >= 'A' && c <= 'Z';
}

bool isLower(char c) {
    return c >= 'a' && c <= 'z';
}

int digitValue(char c) {
    return c == kSeparator ? kSeparatorPairValue : c - '0';
}

bool hasFlag(ENCODING_SCHEME scheme, ENCODING_SCHEME flag) {
    return (scheme & flag) != 0;
}

// Bits that bring length up to a whole number of symbol characters, and to three at least.
size_t padLength(size_t length) {
    if (length < kMinDataBits) {
        return kMinDataBits - length;
    }
    return (kCharacterBits - length % kCharacterBits) % kCharacterBits;
}

// The bits of a character of a table; a character that it lacks is an error of the caller.
template <std::size_t N>
const char* bitsOf(const GS1DatabarExpStackCharBits (&table)[N], char c) {
    for (const GS1DatabarExpStackCharBits& entry : table) {
        if (entry.character == c) {
            return entry.bits;
        }
    }
    throw std::out_of_range("no encoding of the character");
}

}  // namespace

bool GS1DatabarExpStackBinaryStringMaker::BuildBinaryString(const std::string& input,
                                                            std::string& output) {
    inputData = input;
    binaryString = kLinkageFlag;
    const int method = DetermineEncodingMethod();
    binaryString += method == 1 ? kMethod1 : kMethod2;
    binaryString += kVariableLengthPlace;
    size_t start = 0;
    if (method == 1) {
        if (!CheckCompressedFieldDataIsNumeric()) {
            return false;
        }
        EncodeDataCompressedFieldMethod_1();
        start = kCompressedLength;
    }
    const int result = UniversalCompressionField(start);
    FillVariableLengthField(method);
    output = binaryString;
    return result == 0;
}

int GS1DatabarExpStackBinaryStringMaker::DetermineEncodingMethod() const {
    return inputData.size() >= kCompressedLength && inputData.compare(0, 2, "01") == 0 ? 1 : 2;
}

bool GS1DatabarExpStackBinaryStringMaker::CheckCompressedFieldDataIsNumeric() const {
    for (size_t i = 0; i < kCompressedLength; ++i) {
        if (!CheckNumericSchemeApplicable(inputData[i])) {
            return false;
        }
    }
    return true;
}

void GS1DatabarExpStackBinaryStringMaker::EncodeDataCompressedFieldMethod_1() {
    AddDecimalValueToBinaryString(digitValue(inputData[kCompressedFirstDigit]), 4);
    for (size_t group = 0; group < kCompressedGroupCount; ++group) {
        const size_t at = kCompressedFirstDigit + 1 + 3 * group;
        const int value = 100 * digitValue(inputData[at]) + 10 * digitValue(inputData[at + 1]) +
                          digitValue(inputData[at + 2]);
        AddDecimalValueToBinaryString(value, 10);
    }
}

int GS1DatabarExpStackBinaryStringMaker::UniversalCompressionField(size_t start) {
    generalField = inputData.substr(start);
    lastScheme = SCHEME_NUMERIC;
    if (generalField.empty()) {
        return 0;
    }
    if (!DetermineEncodingScheme()) {
        return -1;
    }
    ApplyEncodingSchemeChangeRules();

    // The field opens in numeric.
    if (finalSchemes[0] == SCHEME_ALPHANUMERIC) {
        binaryString += kNumericToAlphaNumeric;
        lastScheme = SCHEME_ALPHANUMERIC;
    } else if (finalSchemes[0] == SCHEME_ISO_IEC_646) {
        binaryString += kNumericToAlphaNumeric;
        binaryString += kAlphaNumericToISO;
        lastScheme = SCHEME_ISO_IEC_646;
    }

    size_t pos = 0;
    while (pos < generalField.size() && finalSchemes[pos] != SCHEME_LAST_DIGIT) {
        switch (finalSchemes[pos]) {
            case SCHEME_NUMERIC:
                ProcessNumericSymbol(pos);
                break;
            case SCHEME_ALPHANUMERIC:
                ProcessAlphaNumericSymbol(pos);
                break;
            case SCHEME_ISO_IEC_646:
                ProcessISO_IEC_646Symbol(pos);
                break;
            default:
                return -1;
        }
    }

    size_t pad = padLength(binaryString.size());
    if (finalSchemes.back() == SCHEME_LAST_DIGIT) {
        const int digit = digitValue(generalField.back());
        if (lastScheme == SCHEME_NUMERIC) {
            // Four bits are room enough for a lone digit; the reader takes them for one.
            if (pad >= 4 && pad <= 6) {
                AddDecimalValueToBinaryString(digit + 1, 4);
            } else {
                EncodeSymbolsPairInNumericMode(digit, kSeparatorPairValue);
            }
        } else {
            AddDecimalValueToBinaryString(digit + 5, 5);
        }
        pad = padLength(binaryString.size());
    }
    if (binaryString.size() > kMaxDataBits) {
        return -2;
    }
    UniversalCompressionFieldPadding(pad);
    return 0;
}

bool GS1DatabarExpStackBinaryStringMaker::DetermineEncodingScheme() {
    schemes.clear();
    finalSchemes.assign(generalField.size(), SCHEME_UNDECIDED);
    for (char c : generalField) {
        if (!CheckIllegalChars(c)) {
            return false;
        }
        if (CheckNumericSchemeApplicable(c)) {
            schemes.push_back(static_cast<ENCODING_SCHEME>(SCHEME_NUMERIC | SCHEME_ALPHANUMERIC |
                                                           SCHEME_ISO_IEC_646));
        } else if (CheckAlphaNumericSchemeApplicable(c)) {
            schemes.push_back(
                static_cast<ENCODING_SCHEME>(SCHEME_ALPHANUMERIC | SCHEME_ISO_IEC_646));
        } else {
            schemes.push_back(SCHEME_ISO_IEC_646);
        }
    }
    return true;
}

bool GS1DatabarExpStackBinaryStringMaker::CheckIllegalChars(char c) {
    if (c == kSeparator) {
        return true;
    }
    if (c < ' ' || c > 'z') {
        return false;
    }
    switch (c) {
        case '#':
        case '$':
        case '@':
        case '[':
        case '\\':
        case ']':
        case '^':
        case '`':
            return false;
        default:
            return true;
    }
}

bool GS1DatabarExpStackBinaryStringMaker::CheckNumericSchemeApplicable(char c) {
    return isDigit(c) || c == kSeparator;
}

bool GS1DatabarExpStackBinaryStringMaker::CheckAlphaNumericSchemeApplicable(char c) {
    switch (c) {
        case '*':
        case ',':
        case '-':
        case '.':
        case '/':
            return true;
        default:
            return isUpper(c);
    }
}

void GS1DatabarExpStackBinaryStringMaker::ApplyEncodingSchemeChangeRules() {
    const ENCODING_SCHEME kAnyField =
        static_cast<ENCODING_SCHEME>(SCHEME_NUMERIC | SCHEME_ALPHANUMERIC | SCHEME_ISO_IEC_646);
    const ENCODING_SCHEME kTextField =
        static_cast<ENCODING_SCHEME>(SCHEME_ALPHANUMERIC | SCHEME_ISO_IEC_646);
    const size_t size = schemes.size();

    // A separator inside text stays in the text's field; the digits behind it go numeric.
    for (ENCODING_SCHEME text : {kTextField, SCHEME_ISO_IEC_646}) {
        for (size_t i = 1; i < size; ++i) {
            if (schemes[i - 1] != text || generalField[i] != kSeparator) {
                continue;
            }
            schemes[i] = text;
            for (size_t j = i + 1; j < size && schemes[j] == kAnyField; ++j) {
                schemes[j] = SCHEME_AFTER_SEPARATOR;
            }
        }
    }

    units.clear();
    for (size_t i = 0; i < size; ++i) {
        if (!units.empty() && units.back().scheme == schemes[i]) {
            ++units.back().count;
        } else {
            units.push_back({1, schemes[i], SCHEME_UNDECIDED});
        }
    }

    // Each unit decides its own field and, where a short run would cost a latch, the next one's.
    for (size_t u = 0; u < units.size(); ++u) {
        EncodingUnit& unit = units[u];
        if (unit.finalScheme != SCHEME_UNDECIDED) {
            continue;
        }
        EncodingUnit* next = u + 1 < units.size() ? &units[u + 1] : nullptr;
        const bool nextIsLast = u + 2 == units.size();
        if (unit.scheme == SCHEME_ISO_IEC_646) {
            unit.finalScheme = SCHEME_ISO_IEC_646;
            if (next && hasFlag(next->scheme, SCHEME_NUMERIC)) {
                next->finalScheme = next->count > 3 ? SCHEME_NUMERIC : SCHEME_ISO_IEC_646;
            } else if (next && hasFlag(next->scheme, SCHEME_ALPHANUMERIC)) {
                next->finalScheme = next->count > 4 ? SCHEME_ALPHANUMERIC : SCHEME_ISO_IEC_646;
            }
        } else if (unit.scheme == kTextField) {
            unit.finalScheme = SCHEME_ALPHANUMERIC;
            if (next && hasFlag(next->scheme, SCHEME_NUMERIC)) {
                const bool numeric = next->count > 5 || (nextIsLast && next->count > 3);
                next->finalScheme = numeric ? SCHEME_NUMERIC : SCHEME_ALPHANUMERIC;
            }
        } else {
            unit.finalScheme = SCHEME_NUMERIC;
        }
    }

    std::vector<EncodingUnit> merged;
    for (const EncodingUnit& unit : units) {
        if (!merged.empty() && merged.back().finalScheme == unit.finalScheme) {
            merged.back().count += unit.count;
        } else {
            merged.push_back(unit);
        }
    }
    units.swap(merged);

    // Numeric goes in pairs: an odd numeric run hands its last character on, and a lone digit at
    // the very end has a form of its own.
    for (size_t u = 0; u + 1 < units.size(); ++u) {
        if (units[u].finalScheme == SCHEME_NUMERIC && units[u].count % 2 != 0) {
            --units[u].count;
            ++units[u + 1].count;
        }
    }
    if (units.back().finalScheme == SCHEME_NUMERIC && units.back().count % 2 != 0) {
        --units.back().count;
        units.push_back({1, SCHEME_LAST_DIGIT, SCHEME_LAST_DIGIT});
    }

    finalSchemes.clear();
    for (const EncodingUnit& unit : units) {
        finalSchemes.insert(finalSchemes.end(), static_cast<size_t>(unit.count), unit.finalScheme);
    }
}

void GS1DatabarExpStackBinaryStringMaker::ProcessNumericSymbol(size_t& pos) {
    if (lastScheme != SCHEME_NUMERIC) {
        binaryString += kToNumeric;
    }
    EncodeSymbolsPairInNumericMode(digitValue(generalField[pos]),
                                   digitValue(generalField[pos + 1]));
    pos += 2;
    lastScheme = SCHEME_NUMERIC;
}

void GS1DatabarExpStackBinaryStringMaker::ProcessAlphaNumericSymbol(size_t& pos) {
    if (pos != 0) {
        if (lastScheme == SCHEME_NUMERIC) {
            binaryString += kNumericToAlphaNumeric;
        } else if (lastScheme == SCHEME_ISO_IEC_646) {
            binaryString += kISOToAlphaNumeric;
        }
    }
    const char c = generalField[pos];
    if (isDigit(c)) {
        AddDecimalValueToBinaryString(c - 43, 5);
    } else if (isUpper(c)) {
        AddDecimalValueToBinaryString(c - 33, 6);
    } else {
        binaryString += bitsOf(g_aAlphaNumericEncodings, c);
    }
    ++pos;
    lastScheme = c == kSeparator ? SCHEME_NUMERIC : SCHEME_ALPHANUMERIC;
}

void GS1DatabarExpStackBinaryStringMaker::ProcessISO_IEC_646Symbol(size_t& pos) {
    if (pos != 0) {
        if (lastScheme == SCHEME_NUMERIC) {
            binaryString += kNumericToAlphaNumeric;
            binaryString += kAlphaNumericToISO;
        } else if (lastScheme == SCHEME_ALPHANUMERIC) {
            binaryString += kAlphaNumericToISO;
        }
    }
    const char c = generalField[pos];
    if (isDigit(c)) {
        AddDecimalValueToBinaryString(c - 43, 5);
    } else if (isUpper(c)) {
        AddDecimalValueToBinaryString(c - 1, 7);
    } else if (isLower(c)) {
        AddDecimalValueToBinaryString(c - 7, 7);
    } else {
        binaryString += bitsOf(g_aISOEncodings, c);
    }
    ++pos;
    lastScheme = c == kSeparator ? SCHEME_NUMERIC : SCHEME_ISO_IEC_646;
}

void GS1DatabarExpStackBinaryStringMaker::EncodeSymbolsPairInNumericMode(int first, int second) {
    AddDecimalValueToBinaryString(11 * first + second + 8, 7);
}

void GS1DatabarExpStackBinaryStringMaker::AddDecimalValueToBinaryString(int value, int bits) {
    for (int bit = bits - 1; bit >= 0; --bit) {
        binaryString += (value >> bit & 1) != 0 ? '1' : '0';
    }
}

void GS1DatabarExpStackBinaryStringMaker::UniversalCompressionFieldPadding(size_t length) {
    std::string pad;
    if (!generalField.empty() && lastScheme == SCHEME_NUMERIC) {
        pad = kNumericToAlphaNumeric;
    }
    while (pad.size() < length) {
        pad += kPadding;
    }
    binaryString += pad.substr(0, length);
}

void GS1DatabarExpStackBinaryStringMaker::FillVariableLengthField(int method) {
    // The symbol characters, the check character included: their parity, and whether there are
    // more than 14.
    const int characters = static_cast<int>(binaryString.size() / kCharacterBits) + 1;
    const size_t at = method == 1 ? 2 : 3;
    if (binaryString.size() < at + 2) {
        return;
    }
    binaryString[at] = characters % 2 != 0 ? '1' : '0';
    binaryString[at + 1] = characters > kLargeSymbolCharacters ? '1' : '0';
}
