#pragma once

#include <cstddef>
#include <functional>
#include <string>

// The identity of a font: its family name and the file that holds it. The name alone tells
// two fonts apart; "default" is the built-in bitmap font, which has no file.
class PFontInfo {
public:
    PFontInfo() = default;
    explicit PFontInfo(std::wstring name, std::wstring file = std::wstring(),
                       std::wstring reserved1 = std::wstring(),
                       std::wstring reserved2 = std::wstring());

    // Both the name and the file are known; the built-in font is therefore not valid.
    bool isValid() const;
    bool operator==(const PFontInfo& other) const;
    bool operator!=(const PFontInfo& other) const { return !(*this == other); }

    std::wstring name;
    std::wstring file;
    // Carried and copied, never filled.
    std::wstring reserved1;
    std::wstring reserved2;
};

namespace std {
template <>
struct hash<PFontInfo> {
    size_t operator()(const PFontInfo& font) const noexcept { return hash<wstring>()(font.name); }
};
}  // namespace std
