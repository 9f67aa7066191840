#pragma once

#include <string>

#include "host/velko_interfaces.h"

namespace VelkoHost {

// The extension's shared library, loaded with dlopen(RTLD_NOW) as the platform loads it, and
// its four entry points.
class ExtensionLibrary {
public:
    explicit ExtensionLibrary(const std::string& path);
    ~ExtensionLibrary();
    ExtensionLibrary(const ExtensionLibrary&) = delete;
    ExtensionLibrary& operator=(const ExtensionLibrary&) = delete;

    // False, with error() saying why, when the library or one of its entry points is missing.
    bool loaded() const { return getClassObject != nullptr; }
    const std::string& error() const { return loadError; }

    // The path of the library this build made, for tools and tests.
    static std::string defaultPath();

    decltype(&::GetClassNames) getClassNames = nullptr;
    decltype(&::GetClassObject) getClassObject = nullptr;
    decltype(&::DestroyObject) destroyObject = nullptr;
    decltype(&::SetPlatformCapabilities) setPlatformCapabilities = nullptr;

private:
    void* handle = nullptr;
    std::string loadError;
};

}  // namespace VelkoHost
