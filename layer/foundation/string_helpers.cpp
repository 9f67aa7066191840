#include "layer/foundation/string_helpers.h"

#include <boost/algorithm/string/case_conv.hpp>
#include <boost/algorithm/string/replace.hpp>
#include <boost/algorithm/string/trim.hpp>

std::string trim(std::string& text) {
    boost::algorithm::trim(text);
    return text;
}

std::wstring trim(std::wstring& text) {
    boost::algorithm::trim(text);
    return text;
}

std::string trimed(const std::string& text) {
    return boost::algorithm::trim_copy(text);
}

std::wstring trimed(const std::wstring& text) {
    return boost::algorithm::trim_copy(text);
}

std::string replace(const std::string& text, const std::string& from, const std::string& to) {
    return boost::algorithm::replace_all_copy(text, from, to);
}

std::wstring replace(const std::wstring& text, const std::wstring& from, const std::wstring& to) {
    return boost::algorithm::replace_all_copy(text, from, to);
}

std::string str_tolower(const std::string& text) {
    return boost::algorithm::to_lower_copy(text);
}

std::wstring str_tolower(const std::wstring& text) {
    return boost::algorithm::to_lower_copy(text);
}
