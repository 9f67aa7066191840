// libdmtx, opened for the first Data Matrix (see deferred_library.h).
#include <dmtx.h>

#include "layer/foundation/deferred_library.h"

namespace {

const DeferredLibrary g_dmtx(VELKO_DMTX_SONAME);

}  // namespace

DmtxEncode* dmtxEncodeCreate() {
    static const auto call = g_dmtx.function<decltype(&dmtxEncodeCreate)>("dmtxEncodeCreate");
    return call ? call() : nullptr;
}

DmtxPassFail dmtxEncodeDestroy(DmtxEncode** encode) {
    static const auto call = g_dmtx.function<decltype(&dmtxEncodeDestroy)>("dmtxEncodeDestroy");
    return call ? call(encode) : DmtxFail;
}

DmtxPassFail dmtxEncodeSetProp(DmtxEncode* encode, int property, int value) {
    static const auto call = g_dmtx.function<decltype(&dmtxEncodeSetProp)>("dmtxEncodeSetProp");
    return call ? call(encode, property, value) : DmtxFail;
}

DmtxPassFail dmtxEncodeDataMatrix(DmtxEncode* encode, int count, unsigned char* data) {
    static const auto call =
        g_dmtx.function<decltype(&dmtxEncodeDataMatrix)>("dmtxEncodeDataMatrix");
    return call ? call(encode, count, data) : DmtxFail;
}

int dmtxImageGetProp(DmtxImage* image, int property) {
    static const auto call = g_dmtx.function<decltype(&dmtxImageGetProp)>("dmtxImageGetProp");
    return call ? call(image, property) : 0;
}
