#include "layer/fonts/p_font_info.h"

#include <utility>

PFontInfo::PFontInfo(std::wstring name, std::wstring file, std::wstring reserved1,
                     std::wstring reserved2)
    : name(std::move(name)),
      file(std::move(file)),
      reserved1(std::move(reserved1)),
      reserved2(std::move(reserved2)) {}

bool PFontInfo::isValid() const {
    return !name.empty() && !file.empty();
}

bool PFontInfo::operator==(const PFontInfo& other) const {
    return name == other.name;
}
