#include "tools/cli/code_type_names.h"

#include <cstdio>
#include <memory>

#include "BarcodeLib/facade/code_types.h"
#include "BarcodeLib/strategy/abstract_barcode_strategy.h"
#include "host/text_forms.h"
#include "layer/foundation/string_helpers.h"
#include "tools/cli/expected_reading.h"

namespace VelkoCli {

namespace {

using BarcodeVelko::CodeType;
using BarcodeVelko::g_codeTypes;
using BarcodeVelko::kCodeTypeCount;

struct AcceptsRow {
    CodeType type;
    const char* accepts;
};

constexpr AcceptsRow g_acceptsRows[kCodeTypeCount] = {
    {CodeType::EAN8, "7 digits (8 raw, with the check digit)"},
    {CodeType::EAN13, "12 digits (13 raw)"},
    {CodeType::EAN128, "a bracketed GS1 element string, or ASCII text as plain Code 128"},
    {CodeType::Code39, "0-9, A-Z, space and - . $ / + %"},
    {CodeType::Code128, "ASCII 0 to 127"},
    {CodeType::Code16K, "ASCII 0 to 127, 2 to 16 rows of 5 characters"},
    {CodeType::PDF417, "any text (as UTF-8), up to 928 codewords with error correction"},
    {CodeType::Standard2of5, "digits; a mod-10 check digit is added"},
    {CodeType::Interleaved2of5, "digits, an even count with the check digit"},
    {CodeType::Code39Ext, "ASCII 0 to 127"},
    {CodeType::Code93, "ASCII 0 to 127"},
    {CodeType::ITF14, "13 digits (14 raw)"},
    {CodeType::RSS14, "13 digits (14 raw)"},
    {CodeType::Codabar, "start and stop A-D around 0-9 and - $ : / . +"},
    {CodeType::EAN13AddOn2, "EAN-13 with a 2-digit add-on: 13 + 2 digits"},
    {CodeType::EAN13AddOn5, "EAN-13 with a 5-digit add-on: 13 + 5 digits"},
    {CodeType::QR, "any text (as UTF-8); QRErrorCorrectionLevel 0 to 3"},
    {CodeType::GS1DatabarExpandedStacked,
     "GS1 DataBar Expanded Stacked: a bracketed GS1 element string; GS1DatabarRowCount"},
    {CodeType::DataMatrix0, "any text (as UTF-8), ASCII encodation"},
    {CodeType::DataMatrix1, "any text (as UTF-8), Base 256 encodation"},
    {CodeType::DataMatrix2, "any text (as UTF-8), Text encodation"},
    {CodeType::DataMatrix3, "any text (as UTF-8), C40 encodation"},
    {CodeType::DataMatrix4, "A-Z, 0-9, space, CR, * and >"},
    {CodeType::DataMatrix5, "ASCII 32 to 94"},
    {CodeType::DataMatrix6, "a bracketed GS1 element string"},
};

constexpr bool acceptsInTypeOrder() {
    for (unsigned i = 0; i < kCodeTypeCount; ++i) {
        if (static_cast<unsigned>(g_acceptsRows[i].type) != i) {
            return false;
        }
    }
    return true;
}
static_assert(acceptsInTypeOrder(), "a row stands at the index of its code type");

// The value the type draws when none is given; where the type can't draw its own, the one the
// gallery draws instead.
std::string demoValue(const BarcodeVelko::CodeTypeRow& row) {
    if (row.galleryValue) {
        return row.galleryValue;
    }
    const std::unique_ptr<BarcodeVelko::AbstractBarcodeStrategy> strategy(row.make(row.argument));
    return wstr2str(strategy->getDemoValue());
}

}  // namespace

int codeTypeNamed(const std::string& text) {
    if (allDigits(text)) {
        const unsigned long number = text.size() > 2 ? kCodeTypeCount : std::stoul(text);
        return number < kCodeTypeCount ? static_cast<int>(number) : -1;
    }
    const std::string name = str_tolower(text);
    for (const BarcodeVelko::CodeTypeRow& row : g_codeTypes) {
        if (name == row.name) {
            return static_cast<int>(row.type);
        }
    }
    return -1;
}

void printCodeTypes(std::ostream& out) {
    char line[256];
    for (unsigned i = 0; i < kCodeTypeCount; ++i) {
        std::snprintf(line, sizeof line, "%2u  %-18s  %-36s  %s\n", i, g_codeTypes[i].name,
                      demoValue(g_codeTypes[i]).c_str(), g_acceptsRows[i].accepts);
        out << line;
    }
}

}  // namespace VelkoCli
