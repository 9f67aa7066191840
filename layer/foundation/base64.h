#pragma once

#include <string>

// The standard alphabet, padded with "=", no line breaks.
std::string b64encode(const void* data, const unsigned int& length);

// Tolerant: reads both the standard and the URL alphabet, accepts a missing "=", skips junk
// between groups of four. The size comes from the input length alone, so skipped characters
// leave zero bytes or stray tail bytes at the end; remove line breaks before decoding.
std::string b64decode(const void* text, const unsigned int& length);

inline std::string base64_encode(const void* data, const unsigned int& length) {
    return b64encode(data, length);
}
inline std::string base64_decode(const void* text, const unsigned int& length) {
    return b64decode(text, length);
}
std::string base64_encode(const std::string& data);
std::string base64_decode(const std::string& text);

inline std::string raw2Base64(const std::string& data) {
    return base64_encode(data);
}
inline std::string base642Raw(const std::string& text) {
    return base64_decode(text);
}
// Through UTF-8; decoded bytes that aren't valid UTF-8 are dropped.
std::wstring raw2Base64(const std::wstring& data);
std::wstring base642Raw(const std::wstring& text);
