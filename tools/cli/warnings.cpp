#include "tools/cli/warnings.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "BarcodeLib/facade/code_types.h"
#include "tools/cli/expected_reading.h"
#include "tools/cli/gs1_elements.h"
#include "tools/cli/picture_reason.h"
#include "tools/host/extension_session.h"

namespace VelkoCli {

namespace {

using VelkoHost::Value;

const char* const kColourProperties[] = {"TextColor", "BgColor", "BarColor"};
constexpr unsigned kQRType = static_cast<unsigned>(BarcodeVelko::CodeType::QR);

// Identifiers whose data ends in a GS1 check digit, and those that hold a date YYMMDD.
const char* const kCheckDigitAIs[] = {"00",  "01",  "02",  "410", "411",  "412", "413",
                                      "414", "415", "416", "417", "8017", "8018"};
const char* const kDateAIs[] = {"11", "12", "13", "15", "16", "17"};
constexpr int kDaysInMonth[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

template <size_t N>
bool listed(const char* const (&list)[N], const std::string& name) {
    return std::find(std::begin(list), std::end(list), name) != std::end(list);
}

// A lint of our own: the library draws what it is given.
void lintElement(const GS1Element& element, std::vector<std::string>& warnings) {
    const std::string& data = element.data;
    if (listed(kCheckDigitAIs, element.ai) && allDigits(data)) {
        const char expected = gs1CheckDigit(data.substr(0, data.size() - 1));
        if (expected != data.back()) {
            warnings.push_back("(" + element.ai + ")" + data + " has the check digit " +
                               data.back() + ", expecting " + expected +
                               ": a scanner may read another number than the one printed");
        }
    }
    if (listed(kDateAIs, element.ai) && allDigits(data)) {
        const int month = std::atoi(data.substr(2, 2).c_str());
        const int day = std::atoi(data.substr(4, 2).c_str());
        // Day 00 stands for the end of the month.
        if (month < 1 || month > 12 || day > kDaysInMonth[month - 1]) {
            warnings.push_back("(" + element.ai + ")" + data + " is no date YYMMDD");
        }
    }
}

// The sizing rule of the two stacked symbologies: the scale is the picture's height over the
// symbol's rows, or 1 when that is 0, capped by the width; PDF417 then stretches its modules by
// AspectRatio. After a picture, CodeMinWidth and CodeMinHeight hold the symbol's modules and rows.
std::vector<std::string> clipWarnings(VelkoHost::ExtensionSession& session, unsigned type) {
    using BarcodeVelko::CodeType;
    const bool pdf417 = type == static_cast<unsigned>(CodeType::PDF417);
    if (!pdf417 && type != static_cast<unsigned>(CodeType::Code16K)) {
        return {};
    }
    const SymbolFit fit = symbolFit(session);
    if (fit.neededWidth <= 0 || fit.neededHeight <= 0) {
        return {};
    }
    int aspectX = 1;
    int aspectY = 1;
    if (pdf417) {
        const Value aspect = session.get("AspectRatio");
        if (const std::string* text = std::get_if<std::string>(&aspect)) {
            std::sscanf(text->c_str(), "%d:%d", &aspectX, &aspectY);
        }
    }
    const int byWidth = std::max(fit.width / fit.neededWidth, 1);
    const int byHeight = fit.height / fit.neededHeight;
    const int scale = byHeight == 0 ? 1 : std::min(byWidth, byHeight);
    const int width = fit.neededWidth * scale * aspectX;
    const int height = fit.neededHeight * scale * aspectY;
    if (width <= fit.width && height <= fit.height) {
        return {};
    }
    return {"the picture clips the symbol: it is drawn " + std::to_string(width) + " x " +
            std::to_string(height) + " pixels into " + fit.given() +
            (pdf417 ? "; a PDF417 takes its scale from the height over its rows, then stretches it "
                      "by AspectRatio"
                    : "; a Code 16K needs 9 pixels a row and 1 more")};
}

}  // namespace

std::vector<std::string> settingWarnings(
    VelkoHost::ExtensionSession& session,
    const std::vector<std::pair<std::string, std::string>>& writes) {
    std::vector<std::string> warnings;
    bool logo = false;
    for (const auto& [name, text] : writes) {
        const long index = session.propIndex(name);
        logo |= index == session.propIndex("LogoImage");
        int aspectX = 1;
        int aspectY = 1;
        if (index == session.propIndex("AspectRatio") &&
            std::sscanf(text.c_str(), "%d:%d", &aspectX, &aspectY) == 2 &&
            (aspectX <= 0 || aspectY <= 0)) {
            warnings.push_back(name + "=" + text +
                               " stretches a PDF417 to no size: its picture comes out blank");
        }
        for (const char* colour : kColourProperties) {
            if (index == session.propIndex(colour) && std::strtoll(text.c_str(), nullptr, 0) != 0 &&
                session.get(index) == Value(0)) {
                warnings.push_back(name + "=" + text +
                                   " arrives as 0, transparent black: a colour with the top bit "
                                   "set is taken as 0, so its alpha byte can be at most 0x7F");
            }
        }
    }
    if (logo && session.get("CodeAuto") == Value(false) &&
        session.get("CodeType") != Value(static_cast<int>(kQRType))) {
        warnings.push_back("a logo is drawn on a QR Code (type 16) only");
    }
    return warnings;
}

std::vector<std::string> valueWarnings(VelkoHost::ExtensionSession& session, unsigned type,
                                       const std::string& value) {
    std::vector<std::string> warnings = clipWarnings(session, type);
    if (type < BarcodeVelko::kCodeTypeCount &&
        BarcodeVelko::g_codeTypes[type].has(BarcodeVelko::kGS1Value) && !value.empty() &&
        value[0] == '(') {
        std::string why;
        const std::vector<GS1Element> elements = parseBracketed(value, &why);
        if (elements.empty()) {
            warnings.push_back("\"" + value + "\" is no GS1 element string (" + why +
                               "): it is drawn as plain data, brackets and all");
        }
        for (const GS1Element& element : elements) {
            lintElement(element, warnings);
        }
    }
    return warnings;
}

}  // namespace VelkoCli
