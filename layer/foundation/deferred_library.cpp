#include "layer/foundation/deferred_library.h"

#include <dlfcn.h>

void* DeferredLibrary::symbol(const char* name) const {
    std::call_once(opening, [this] { handle = dlopen(soname, RTLD_NOW | RTLD_LOCAL); });
    return handle ? dlsym(handle, name) : nullptr;
}
