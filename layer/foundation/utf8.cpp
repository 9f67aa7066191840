#include "layer/foundation/utf8.h"

#include <boost/locale/encoding_utf.hpp>
#include <boost/locale/utf.hpp>

std::string wstr2str(const std::wstring& text) {
    return boost::locale::conv::utf_to_utf<char>(text, boost::locale::conv::skip);
}

std::wstring str2wstr(const std::string& text) {
    // Boost's skip mode also swallows the byte behind a broken lead byte, which may be good
    // text; so each bad byte is dropped alone and decoding starts afresh behind it.
    using Utf8 = boost::locale::utf::utf_traits<char>;
    std::wstring wide;
    wide.reserve(text.size());
    const char* position = text.data();
    const char* const end = position + text.size();
    while (position != end) {
        const char* const start = position;
        const boost::locale::utf::code_point c = Utf8::decode(position, end);
        if (c == boost::locale::utf::illegal || c == boost::locale::utf::incomplete) {
            position = start + 1;
        } else {
            wide += static_cast<wchar_t>(c);
        }
    }
    return wide;
}
