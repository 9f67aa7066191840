#include "tools/cli/verify.h"

#include <iterator>

#include "BarcodeLib/facade/code_types.h"
#include "tools/cli/expected_reading.h"
#include "tools/cli/reader_module.h"

namespace VelkoCli {

namespace {

// How a code type is read back.
struct TypeReading {
    const char* format;  // zxing-cpp's name of the symbology; null: no reader at hand
    // The quiet zone, in modules, that the symbology's standard asks for on each side.
    unsigned quietModules;
    Meaning meaning;
    size_t length;  // digits of a GTIN, or of an add-on
    // Shorter readings than this the reader doesn't report at all.
    size_t shortest = 0;
};

constexpr const char* kNoReader = nullptr;
constexpr size_t kShortestITF = 6;

// format, quiet zone in modules, meaning, length, shortest; a row a type in the host's numbering.
const TypeReading kReadings[] = {
    {"EAN-8", 7, Meaning::Gtin, 8},                      // 0 EAN-8
    {"EAN-13", 11, Meaning::Gtin, 13},                   // 1 EAN-13
    {"Code128", 10, Meaning::GS1, 0},                    // 2 EAN-128
    {"Code39", 10, Meaning::Text, 0},                    // 3 Code 39
    {"Code128", 10, Meaning::Text, 0},                   // 4 Code 128
    {kNoReader, 10, Meaning::Text, 0},                   // 5 Code 16K
    {"PDF417", 2, Meaning::Text, 0},                     // 6 PDF417
    {kNoReader, 10, Meaning::Text, 0},                   // 7 Standard 2 of 5
    {"ITF", 10, Meaning::Interleaved, 0, kShortestITF},  // 8 Interleaved 2 of 5
    {"Code39", 10, Meaning::Text, 0},                    // 9 Extended Code 39
    {"Code93", 10, Meaning::Text, 0},                    // 10 Code 93
    {"ITF", 10, Meaning::Gtin, 14},                      // 11 ITF-14
    {"DataBar", 1, Meaning::Gtin, 14},                   // 12 RSS-14
    {"Codabar", 10, Meaning::Text, 0},                   // 13 Codabar
    {"EAN-13", 11, Meaning::AddOn, 2},                   // 14 EAN-13 + 2
    {"EAN-13", 11, Meaning::AddOn, 5},                   // 15 EAN-13 + 5
    {"QRCode", 4, Meaning::Text, 0},                     // 16 QR Code
    {"DataBarExpanded", 1, Meaning::GS1, 0},             // 17 DataBar Expanded Stacked
    {"DataMatrix", 1, Meaning::Text, 0},                 // 18 Data Matrix 0
    {"DataMatrix", 1, Meaning::Text, 0},                 // 19 Data Matrix 1
    {"DataMatrix", 1, Meaning::Text, 0},                 // 20 Data Matrix 2
    {"DataMatrix", 1, Meaning::Text, 0},                 // 21 Data Matrix 3
    {"DataMatrix", 1, Meaning::Text, 0},                 // 22 Data Matrix 4
    {"DataMatrix", 1, Meaning::Text, 0},                 // 23 Data Matrix 5
    {"DataMatrix", 1, Meaning::GS1, 0},                  // 24 Data Matrix 6 (GS1)
};
static_assert(std::size(kReadings) == BarcodeVelko::kCodeTypeCount);

}  // namespace

std::string Verification::describe() const {
    switch (verdict) {
        case Verdict::Clean:
            return "reads as asked";
        case Verdict::Unreadable:
            return "unreadable: no scanner reads it (expected " + expected + ")";
        case Verdict::Misread:
            return "reads " + read + ", expected " + expected;
        case Verdict::NotVerifiable:
            break;
    }
    return "not verifiable: " + why;
}

size_t gtinLength(unsigned codeType) {
    return codeType < std::size(kReadings) && kReadings[codeType].meaning == Meaning::Gtin
               ? kReadings[codeType].length
               : 0;
}

Verification verifyPicture(const std::vector<unsigned char>& png, unsigned codeType,
                           const std::string& value, bool whole) {
    Verification verification;
    if (codeType >= std::size(kReadings) || kReadings[codeType].format == kNoReader) {
        verification.verdict = Verdict::NotVerifiable;
        return verification;
    }
    const TypeReading& reading = kReadings[codeType];
    verification.expected = expectedReading(reading.meaning, value, reading.length, whole);
    if (verification.expected.size() < reading.shortest) {
        verification.verdict = Verdict::NotVerifiable;
        verification.why =
            "the reader takes no fewer than " + std::to_string(reading.shortest) + " characters";
        return verification;
    }
    std::string symbology;
    if (!ReaderModule::instance().read(png, reading.format, reading.quietModules,
                                       reading.meaning == Meaning::AddOn, symbology,
                                       verification.read)) {
        return verification;
    }
    if (reading.meaning == Meaning::GS1) {
        verification.read = normalReading(symbology, verification.read);
    }
    verification.verdict =
        verification.read == verification.expected ? Verdict::Clean : Verdict::Misread;
    return verification;
}

}  // namespace VelkoCli
