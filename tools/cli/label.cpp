#include "tools/cli/label.h"

#include "layer/foundation/base64.h"
#include "tools/cli/host_values.h"
#include "tools/cli/picture_reason.h"
#include "tools/cli/png_size.h"
#include "tools/cli/text_check.h"
#include "tools/cli/warnings.h"
#include "tools/host/extension_session.h"

namespace VelkoCli {

namespace {

using VelkoHost::Value;

constexpr int kBase64Input = 1;

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
    const bool isPng = pngSize(label.png, label.width, label.height);
    label.clean = isPng && session.get("Result") == Value(0);
    const unsigned type = static_cast<unsigned>(numberOf(session.get("CodeType")));
    label.type = std::to_string(type);
    label.text = textOf(session.get("CodeText"));
    const std::string meant = meantValue(session, value);
    if (!label.clean) {
        label.reason = isPng ? pictureReason(session, meant) : "no picture came back";
        return label;
    }
    label.warnings = valueWarnings(session, type, meant);
    if (textProbe) {
        const std::vector<std::string> lost = textLineWarnings(session, *textProbe, type);
        label.warnings.insert(label.warnings.end(), lost.begin(), lost.end());
    }
    if (verify) {
        label.verified = true;
        label.verification = verifyPicture(label.png, type, meant, value.empty());
    }
    return label;
}

}  // namespace VelkoCli
