#pragma once

#include <string>
#include <vector>

#include "tools/cli/verify.h"

namespace VelkoHost {
class ExtensionSession;
}

namespace VelkoCli {

// One picture drawn through the object, with what the user should hear about it.
struct Label {
    std::vector<unsigned char> png;
    unsigned width = 0;
    unsigned height = 0;
    // Result 0 and a PNG.
    bool clean = false;
    // Why the picture shows an error, as the picture says it and in more words.
    std::string reason;
    std::vector<std::string> warnings;
    bool verified = false;
    Verification verification;
    // CodeType and CodeText after the picture.
    std::string type;
    std::string text;

    // Clean, and no reading says otherwise.
    bool good() const;
};

// Draws the value last written with the settings in place; value is the text written to
// CodeValue, empty for the type's demo value. With verify the picture is read back, and a text
// probe (see text_check.h) that holds the same value, if given, counts the human-readable line.
Label drawLabel(VelkoHost::ExtensionSession& session, const std::string& value, bool verify,
                VelkoHost::ExtensionSession* textProbe = nullptr);

}  // namespace VelkoCli
