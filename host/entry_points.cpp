#include <cstddef>
#include <cwchar>
#include <exception>
#include <string>
#include <vector>

#include "host/cbarcode.h"
#include "host/text_forms.h"

namespace {

const wchar_t kClassName[] = L"CBarcode";

}  // namespace

extern "C" {

const unsigned short* GetClassNames() {
    static const std::vector<unsigned short> names = [] {
        std::vector<unsigned short> units(std::wcslen(kClassName) + 1);
        unsigned short* buffer = units.data();
        convToShortWchar(&buffer, kClassName, static_cast<unsigned int>(units.size()));
        return units;
    }();
    return names.data();
}

long GetClassObject(const unsigned short* name, IVelkoExtension** object) {
    if (!object) {
        return 0;
    }
    if (*object) {
        return reinterpret_cast<long>(*object);
    }
    if (!name) {
        return 0;
    }
    // Measured no further than the one name that makes an object.
    const std::size_t length = boundedLenShortWcharStr(name, std::wcslen(kClassName));
    if (std::wstring(name, name + length) != kClassName) {
        return 0;
    }
    try {
        *object = new CBarcode;
    } catch (const std::exception&) {
        return 0;
    }
    return reinterpret_cast<long>(*object);
}

long DestroyObject(IVelkoExtension** object) {
    if (!object || !*object) {
        return -1;
    }
    delete *object;
    *object = nullptr;
    return 0;
}

long SetPlatformCapabilities(long) {
    return 1;
}

}  // extern "C"
