// LodePNG, opened for the first logo (see deferred_library.h); it brings the shared C++
// runtime, which the extension otherwise doesn't load. Its functions have C++ linkage: they
// are looked up by their mangled names.
#include <lodepng.h>

#include <cstddef>
#include <type_traits>

#include "layer/foundation/deferred_library.h"

namespace {

const DeferredLibrary g_lodePng(VELKO_LODEPNG_SONAME);

// LodePNG's code for a failed allocation: what a function answers while it can't be had.
constexpr unsigned kMissing = 83;

// The names mangle size_t as the type it stands for.
constexpr bool kLongSize = std::is_same_v<std::size_t, unsigned long>;

}  // namespace

void lodepng_state_init(LodePNGState* state) {
    g_lodePng.callIfThere<&lodepng_state_init>("_Z18lodepng_state_initP12LodePNGState", state);
}

void lodepng_state_cleanup(LodePNGState* state) {
    g_lodePng.callIfThere<&lodepng_state_cleanup>("_Z21lodepng_state_cleanupP12LodePNGState",
                                                  state);
}

unsigned lodepng_inspect(unsigned* width, unsigned* height, LodePNGState* state,
                         const unsigned char* in, std::size_t size) {
    return g_lodePng.call<&lodepng_inspect>(kLongSize
                                                ? "_Z15lodepng_inspectPjS_P12LodePNGStatePKhm"
                                                : "_Z15lodepng_inspectPjS_P12LodePNGStatePKhj",
                                            kMissing, width, height, state, in, size);
}

std::size_t lodepng_get_raw_size(unsigned width, unsigned height, const LodePNGColorMode* color) {
    return g_lodePng.call<&lodepng_get_raw_size>("_Z20lodepng_get_raw_sizejjPK16LodePNGColorMode",
                                                 0, width, height, color);
}

unsigned lodepng_decode32(unsigned char** out, unsigned* width, unsigned* height,
                          const unsigned char* in, std::size_t size) {
    return g_lodePng.call<&lodepng_decode32>(
        kLongSize ? "_Z16lodepng_decode32PPhPjS1_PKhm" : "_Z16lodepng_decode32PPhPjS1_PKhj",
        kMissing, out, width, height, in, size);
}
