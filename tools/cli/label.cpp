#include "tools/cli/label.h"

#include <lodepng.h>

#include "layer/foundation/base64.h"
#include "tools/cli/picture_reason.h"
#include "tools/cli/text_check.h"
#include "tools/cli/warnings.h"
#include "tools/host/extension_session.h"

namespace VelkoCli {

namespace {

using VelkoHost::Value;

constexpr int kBase64Input = 1;

std::string textOf(const Value& value) {
    if (const int* number = std::get_if<int>(&value)) {
        return std::to_string(*number);
    }
    const std::string* utf8 = std::get_if<std::string>(&value);
    return utf8 ? *utf8 : std::string();
}

// The text the symbol was asked to hold.
std::string meantValue(VelkoHost::ExtensionSession& session, const std::string& value) {
    if (value.empty()) {
        return textOf(session.get("CodeText"));
    }
    if (session.get("InputDataType") != Value(kBase64Input)) {
        return value;
    }
    std::string base64;
    for (const char c : value) {
        if (c != '\n' && c != '\r') {
            base64 += c;
        }
    }
    return base642Raw(base64);
}

}  // namespace

bool Label::good() const {
    return clean && (!verified || verification.verdict == Verdict::Clean ||
                     verification.verdict == Verdict::NotVerifiable);
}

Label drawLabel(VelkoHost::ExtensionSession& session, const std::string& value, bool verify,
                VelkoHost::ExtensionSession* textProbe) {
    Label label;
    label.png = session.getBarcode();
    lodepng::State state;
    const bool isPng =
        !label.png.empty() && lodepng_inspect(&label.width, &label.height, &state, label.png.data(),
                                              label.png.size()) == 0;
    label.clean = isPng && session.get("Result") == Value(0);
    const Value type = session.get("CodeType");
    label.type = textOf(type);
    label.text = textOf(session.get("CodeText"));
    const std::string meant = meantValue(session, value);
    if (!label.clean) {
        label.reason = isPng ? pictureReason(session, meant) : "no picture came back";
        return label;
    }
    const int* number = std::get_if<int>(&type);
    const unsigned typeNumber = number ? static_cast<unsigned>(*number) : ~0u;
    label.warnings = valueWarnings(session, typeNumber, meant);
    if (textProbe) {
        const std::vector<std::string> lost = textLineWarnings(session, *textProbe, typeNumber);
        label.warnings.insert(label.warnings.end(), lost.begin(), lost.end());
    }
    if (verify) {
        label.verified = true;
        label.verification = verifyPicture(label.png, typeNumber, meant, value.empty());
    }
    return label;
}

}  // namespace VelkoCli
