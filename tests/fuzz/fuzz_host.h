#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"

// What the fuzz targets share: the extension loaded once, as the platform keeps it, and the
// checks that end every input.
namespace VelkoFuzz {

inline const VelkoHost::ExtensionLibrary& library() {
    static const VelkoHost::ExtensionLibrary loaded(VelkoHost::ExtensionLibrary::defaultPath());
    if (!loaded.loaded()) {
        std::abort();
    }
    return loaded;
}

// Reads every property back, as a host showing them would, and stops the run if the object
// handed over a buffer that wasn't the allocator's or wrote past one.
inline void readEverything(VelkoHost::ExtensionSession& session) {
    for (long index = -1; index <= 44; ++index) {
        session.get(index);
    }
    if (session.sawBufferFault()) {
        std::abort();
    }
}

// After the session: no host memory may stay behind.
inline void checkBooks(VelkoHost::ExtensionSession& session) {
    if (session.sawBufferFault() || session.memory().outstanding() != 0) {
        std::abort();
    }
}

}  // namespace VelkoFuzz

// The code type an input drives, for the check that the seeds cover every type; -1 when the
// object searches the type itself.
extern "C" int VelkoFuzzCodeType(const uint8_t* data, size_t size);
