#pragma once

#include <string>

#include "tools/host/extension_session.h"

namespace VelkoCli {

// A property read as the tool wants it: 0 or empty when the object gave another kind.
inline int numberOf(const VelkoHost::Value& value) {
    const int* number = std::get_if<int>(&value);
    return number ? *number : 0;
}

inline std::string textOf(const VelkoHost::Value& value) {
    const std::string* text = std::get_if<std::string>(&value);
    return text ? *text : std::string();
}

}  // namespace VelkoCli
