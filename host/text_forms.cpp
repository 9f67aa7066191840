#include "host/text_forms.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <cwchar>

namespace {

// Truncates toward zero; false for NaN and for values outside [low, high].
bool truncateDouble(double value, double low, double high, int64_t& result) {
    const double truncated = std::trunc(value);
    if (!(truncated >= low && truncated <= high)) {
        return false;
    }
    result = static_cast<int64_t>(truncated);
    return true;
}

bool isIntegerTag(unsigned short type) {
    return type == 2 || type == VariantI4 || type == 10 || type == 14;
}

bool isFloatingTag(unsigned short type) {
    return type == 4 || type == VariantR8;
}

}  // namespace

unsigned int getLenShortWcharStr(const unsigned short* source) {
    unsigned int length = 0;
    if (source) {
        while (source[length]) {
            ++length;
        }
    }
    return length;
}

std::size_t boundedLenShortWcharStr(const unsigned short* source, std::size_t limit) {
    std::size_t length = 0;
    while (source && length <= limit && source[length] != 0) {
        ++length;
    }
    return length;
}

unsigned int convToShortWchar(unsigned short** dest, const wchar_t* source, unsigned int len) {
    if (len == 0) {
        len = (source ? static_cast<unsigned int>(std::wcslen(source)) : 0) + 1;
    }
    if (!*dest) {
        *dest = new unsigned short[len];
    }
    unsigned short* out = *dest;
    std::memset(out, 0, len * sizeof(unsigned short));
    if (source) {
        for (unsigned int i = 0; i < len; ++i) {
            out[i] = static_cast<unsigned short>(source[i]);
        }
    }
    return len;
}

unsigned int convFromShortWchar(wchar_t** dest, const unsigned short* source, unsigned int len) {
    if (len == 0) {
        len = getLenShortWcharStr(source) + 1;
    }
    if (!*dest) {
        *dest = new wchar_t[len];
    }
    wchar_t* out = *dest;
    std::wmemset(out, 0, len);
    if (source) {
        for (unsigned int i = 0; i < len && source[i]; ++i) {
            out[i] = source[i];
        }
    }
    return len;
}

std::wstring convFromShortWchar(const unsigned short* source, unsigned int len) {
    if (!source) {
        return std::wstring();
    }
    if (len == 0) {
        len = getLenShortWcharStr(source);
    }
    return std::wstring(source, source + len);
}

std::wstring convFromShortWchar(const VelkoVariant& value) {
    return convFromShortWchar(value.str.chars, value.str.length);
}

unsigned short* AllocAndConvert(IVelkoMemory* memory, const wchar_t* source, unsigned int* length) {
    const unsigned int sourceLength = source ? static_cast<unsigned int>(std::wcslen(source)) : 0;
    if (length) {
        *length = sourceLength;
    }
    void* buffer = nullptr;
    if (!memory || !memory->allocate(&buffer, (sourceLength + 1) * sizeof(unsigned short)) ||
        !buffer) {
        return nullptr;
    }
    unsigned short* text = static_cast<unsigned short*>(buffer);
    convToShortWchar(&text, source, sourceLength + 1);
    return text;
}

VelkoVariant AllocAndConvertVariant(IVelkoMemory* memory, const wchar_t* source) {
    VelkoVariant value{};
    unsigned int length = 0;
    value.str.chars = AllocAndConvert(memory, source, &length);
    // A host that trusts the length must not read it behind a null pointer.
    value.str.length = value.str.chars ? length : 0;
    value.type = VariantWStr;
    return value;
}

bool convVarToInt(const VelkoVariant& value, int& result) {
    if (isIntegerTag(value.type)) {
        result = value.intValue;
        return true;
    }
    int64_t truncated = 0;
    if (isFloatingTag(value.type) &&
        truncateDouble(value.doubleValue, INT32_MIN, INT32_MAX, truncated)) {
        result = static_cast<int>(truncated);
        return true;
    }
    return false;
}

bool convVarToDWORD(const VelkoVariant& value, unsigned long& result) {
    const unsigned short type = value.type;
    if (isIntegerTag(type) || (type >= 15 && type <= 18)) {
        result = static_cast<uint32_t>(value.intValue);
        return true;
    }
    // Negative values wrap as the integer payload does.
    int64_t truncated = 0;
    if (isFloatingTag(type) &&
        truncateDouble(value.doubleValue, INT32_MIN, UINT32_MAX, truncated)) {
        result = static_cast<uint32_t>(truncated);
        return true;
    }
    return false;
}
