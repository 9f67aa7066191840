#include "tools/cli/picture_reason.h"

#include <cctype>

#include "BarcodeLib/errors/error_picture_texts.h"
#include "BarcodeLib/facade/code_types.h"
#include "tools/cli/expected_reading.h"
#include "tools/cli/host_values.h"
#include "tools/cli/verify.h"
#include "tools/host/extension_session.h"

namespace VelkoCli {

namespace {

using VelkoHost::Value;

std::string typeName(int type) {
    const bool known = type >= 0 && type < static_cast<int>(BarcodeVelko::kCodeTypeCount);
    return std::to_string(type) +
           (known ? std::string(" (") + BarcodeVelko::g_codeTypes[type].name + ")" : std::string());
}

std::string invalidValue(int type, const std::string& value) {
    std::string reason = std::string(BarcodeVelko::kInvalidBarcodeText) + ": type " +
                         typeName(type) + " can't encode \"" + value + "\"";
    const size_t length = gtinLength(static_cast<unsigned>(type));
    if (length != 0 && value.size() == length && allDigits(value)) {
        const char expected = gs1CheckDigit(value.substr(0, length - 1));
        if (expected != value.back()) {
            reason += std::string(": check digit ") + value.back() + ", expecting " + expected;
        }
    }
    if (!value.empty() && (std::isspace(static_cast<unsigned char>(value.front())) ||
                           std::isspace(static_cast<unsigned char>(value.back())))) {
        reason += " (the value begins or ends with a blank)";
    }
    return reason;
}

std::string pixels(int width, int height) {
    return std::to_string(width) + " x " + std::to_string(height);
}

}  // namespace

std::string SymbolFit::needed() const {
    return pixels(neededWidth, neededHeight);
}

std::string SymbolFit::given() const {
    return pixels(width, height);
}

SymbolFit symbolFit(VelkoHost::ExtensionSession& session) {
    const int rotation = numberOf(session.get("CanvasRotation"));
    const bool turned = rotation == 90 || rotation == 270;
    SymbolFit fit;
    fit.width = numberOf(session.get(turned ? "Height" : "Width"));
    fit.height = numberOf(session.get(turned ? "Width" : "Height"));
    fit.neededWidth = numberOf(session.get("CodeMinWidth"));
    fit.neededHeight = numberOf(session.get("CodeMinHeight"));
    return fit;
}

std::string pictureReason(VelkoHost::ExtensionSession& session, const std::string& value) {
    const int type = numberOf(session.get("CodeType"));
    // A value that no generation took leaves no text behind.
    const Value text = session.get("CodeText");
    if (text == Value(std::string())) {
        return invalidValue(type, value);
    }
    const SymbolFit fit = symbolFit(session);
    if (!fit.fits()) {
        return std::string(BarcodeVelko::kSizeTooSmallText) + ": the symbol needs at least " +
               fit.needed() + " pixels, the picture is " + fit.given();
    }
    return BarcodeVelko::kGenerationErrorText;
}

}  // namespace VelkoCli
