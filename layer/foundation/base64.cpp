#include "layer/foundation/base64.h"

#include <array>

#include "layer/foundation/utf8.h"

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

struct DecodeTable {
    std::array<unsigned char, 256> value{};
    std::array<bool, 256> valid{};

    constexpr DecodeTable() {
        for (unsigned char i = 0; i < 64; ++i) {
            const auto c = static_cast<unsigned char>(kAlphabet[i]);
            value[c] = i;
            valid[c] = true;
        }
        value['-'] = 62;
        valid['-'] = true;
        value['_'] = 63;
        valid['_'] = true;
    }
};

constexpr DecodeTable kDecode;

// Reads past the end as a character of value 0.
class Input {
public:
    Input(const unsigned char* text, unsigned int length) : text(text), length(length) {}

    bool isBase64(unsigned int position) const {
        return position < length && kDecode.valid[text[position]];
    }
    unsigned char value(unsigned int position) const {
        return position < length ? kDecode.value[text[position]] : 0;
    }

private:
    const unsigned char* text;
    unsigned int length;
};

}  // namespace

std::string b64encode(const void* data, const unsigned int& length) {
    const auto* bytes = static_cast<const unsigned char*>(data);
    std::string text;
    text.reserve((length + 2) / 3 * 4);
    for (unsigned int i = 0; i < length; i += 3) {
        const unsigned int left = length - i;
        const unsigned int group =
            (bytes[i] << 16) | (left > 1 ? bytes[i + 1] << 8 : 0) | (left > 2 ? bytes[i + 2] : 0);
        text += kAlphabet[(group >> 18) & 0x3F];
        text += kAlphabet[(group >> 12) & 0x3F];
        text += left > 1 ? kAlphabet[(group >> 6) & 0x3F] : '=';
        text += left > 2 ? kAlphabet[group & 0x3F] : '=';
    }
    return text;
}

std::string b64decode(const void* text, const unsigned int& length) {
    const unsigned int n = length;
    if (n == 0 || !text) {
        return std::string();
    }
    const auto* chars = static_cast<const unsigned char*>(text);
    const Input in(chars, n);

    const unsigned int rest = n % 4;
    const bool hasTail = rest != 0 || chars[n - 1] == '=';
    const bool twoByteTail = hasTail && (rest == 3 || (n >= 2 && chars[n - 2] != '='));
    const unsigned int fullGroups = hasTail ? (n - 1) / 4 : n / 4;
    const unsigned int groupEnd = fullGroups * 4;

    std::string out(fullGroups * 3 + (hasTail ? (twoByteTail ? 2 : 1) : 0), '\0');
    std::size_t written = 0;
    for (unsigned int p = 0; p < groupEnd; p += 4) {
        // Junk in front of each of the four characters moves the whole group on.
        for (unsigned int k = 0; k < 4 && p < groupEnd; ++k) {
            while (p + k < n && !in.isBase64(p + k)) {
                ++p;
            }
        }
        if (p >= groupEnd) {
            break;
        }
        const unsigned int group = (in.value(p) << 18) | (in.value(p + 1) << 12) |
                                   (in.value(p + 2) << 6) | in.value(p + 3);
        out[written++] = static_cast<char>(group >> 16);
        out[written++] = static_cast<char>(group >> 8);
        out[written++] = static_cast<char>(group);
    }

    if (hasTail) {
        const std::size_t tailAt = fullGroups * 3;
        out[tailAt] = static_cast<char>((in.value(groupEnd) << 2) | (in.value(groupEnd + 1) >> 4));
        if (twoByteTail) {
            out[tailAt + 1] = static_cast<char>(((in.value(groupEnd + 1) & 0x0F) << 4) |
                                                (in.value(groupEnd + 2) >> 2));
        }
    }
    return out;
}

std::string base64_encode(const std::string& data) {
    return b64encode(data.data(), static_cast<unsigned int>(data.size()));
}

std::string base64_decode(const std::string& text) {
    return b64decode(text.data(), static_cast<unsigned int>(text.size()));
}

std::wstring raw2Base64(const std::wstring& data) {
    return str2wstr(base64_encode(wstr2str(data)));
}

std::wstring base642Raw(const std::wstring& text) {
    return str2wstr(base64_decode(wstr2str(text)));
}
