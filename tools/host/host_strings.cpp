#include "tools/host/host_strings.h"

#include <boost/locale/encoding_utf.hpp>

namespace VelkoHost {

std::u16string fromHostString(const unsigned short* units) {
    std::u16string text;
    for (; units && *units; ++units) {
        text.push_back(static_cast<char16_t>(*units));
    }
    return text;
}

std::u16string toUtf16(const std::string& utf8) {
    return boost::locale::conv::utf_to_utf<char16_t>(utf8);
}

std::string toUtf8(const std::u16string& units) {
    return boost::locale::conv::utf_to_utf<char>(units);
}

}  // namespace VelkoHost
