#include "tools/cli/expected_reading.h"

#include <algorithm>
#include <cctype>
#include <iterator>

#include "tools/cli/gs1_elements.h"

namespace VelkoCli {

namespace {

constexpr char kGS1Mark[] = "GS1 data ";
constexpr size_t kEan13Length = 13;
// The identifiers by which a scanner says that GS1 data follows.
const char* const kGS1Symbologies[] = {"]C1", "]d2", "]e0", "]Q3"};

std::string withCheckDigit(const std::string& digits, size_t length) {
    return allDigits(digits) && digits.size() + 1 == length ? digits + gs1CheckDigit(digits)
                                                            : digits;
}

}  // namespace

bool allDigits(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](unsigned char c) { return std::isdigit(c) != 0; });
}

char gs1CheckDigit(const std::string& digits) {
    int sum = 0;
    for (size_t i = 0; i < digits.size(); ++i) {
        const int digit = digits[digits.size() - 1 - i] - '0';
        sum += i % 2 == 0 ? 3 * digit : digit;
    }
    return static_cast<char>('0' + (10 - sum % 10) % 10);
}

std::string expectedReading(Meaning meaning, const std::string& value, size_t length, bool whole) {
    switch (meaning) {
        case Meaning::Gtin:
            return withCheckDigit(value, length);
        case Meaning::Interleaved:
            // An odd count of digits gets the check digit that makes it even.
            return whole || !allDigits(value) || value.size() % 2 == 0
                       ? value
                       : value + gs1CheckDigit(value);
        case Meaning::AddOn: {
            if (value.size() <= length) {
                return value;
            }
            const size_t ean = value.size() - length;
            return withCheckDigit(value.substr(0, ean), kEan13Length) + " " + value.substr(ean);
        }
        case Meaning::GS1: {
            // Only a value that opens with a bracketed identifier asks for GS1 data.
            if (value.empty() || value[0] != '(') {
                return value;
            }
            const std::vector<GS1Element> elements = parseBracketed(value);
            return kGS1Mark + (elements.empty() ? value : bracketed(elements));
        }
        case Meaning::Text:
            break;
    }
    return value;
}

std::string normalReading(const std::string& symbology, const std::string& text) {
    if (std::find(std::begin(kGS1Symbologies), std::end(kGS1Symbologies), symbology) ==
        std::end(kGS1Symbologies)) {
        return text;
    }
    const std::vector<GS1Element> elements =
        !text.empty() && text[0] == '(' ? parseBracketed(text) : gs1Elements(text);
    return kGS1Mark + (elements.empty() ? text : bracketed(elements));
}

}  // namespace VelkoCli
