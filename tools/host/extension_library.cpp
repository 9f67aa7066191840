#include "tools/host/extension_library.h"

#include <dlfcn.h>

#include <cstdlib>

namespace VelkoHost {

namespace {

template <class Function>
bool resolve(void* handle, const char* name, Function& function, std::string& error) {
    function = reinterpret_cast<Function>(dlsym(handle, name));
    if (!function) {
        error = std::string("missing entry point ") + name;
    }
    return function != nullptr;
}

}  // namespace

ExtensionLibrary::ExtensionLibrary(const std::string& path) {
    // Like the platform, the host keeps an extension for the life of the process: its
    // process-wide stores (glyphs, font lists) and those of its libraries live until the end.
    handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!handle) {
        const char* reason = dlerror();
        loadError = reason ? reason : "dlopen failed";
        return;
    }
    decltype(getClassObject) classObject = nullptr;
    if (resolve(handle, "GetClassNames", getClassNames, loadError) &&
        resolve(handle, "DestroyObject", destroyObject, loadError) &&
        resolve(handle, "SetPlatformCapabilities", setPlatformCapabilities, loadError) &&
        resolve(handle, "GetClassObject", classObject, loadError)) {
        getClassObject = classObject;
    }
}

ExtensionLibrary::~ExtensionLibrary() {
    if (handle) {
        dlclose(handle);
    }
}

std::string ExtensionLibrary::defaultPath() {
    const char* path = std::getenv("VELKO_EXTENSION");
    return path && *path ? path : VELKO_EXTENSION_PATH;
}

}  // namespace VelkoHost
