#pragma once

#include <string>

namespace VelkoHost {
class ExtensionSession;
}

namespace VelkoCli {

// The symbol's least size beside the picture's, both as the picture comes out.
struct SymbolFit {
    int neededWidth = 0;
    int neededHeight = 0;
    int width = 0;
    int height = 0;

    bool fits() const { return neededWidth <= width && neededHeight <= height; }
    std::string needed() const;
    std::string given() const;
};

SymbolFit symbolFit(VelkoHost::ExtensionSession& session);

// Why the last picture is an error picture: the text the picture shows, then what the object's
// properties tell about it. value is the text the symbol was asked to hold.
std::string pictureReason(VelkoHost::ExtensionSession& session, const std::string& value);

}  // namespace VelkoCli
