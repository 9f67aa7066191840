// libdmtx, opened for the first Data Matrix (see deferred_library.h).
#include <dmtx.h>

#include "layer/foundation/deferred_library.h"

namespace {

const DeferredLibrary g_dmtx(VELKO_DMTX_SONAME);

}  // namespace

DmtxEncode* dmtxEncodeCreate() {
    return g_dmtx.call<&dmtxEncodeCreate>("dmtxEncodeCreate", nullptr);
}

DmtxPassFail dmtxEncodeDestroy(DmtxEncode** encode) {
    return g_dmtx.call<&dmtxEncodeDestroy>("dmtxEncodeDestroy", DmtxFail, encode);
}

DmtxPassFail dmtxEncodeSetProp(DmtxEncode* encode, int property, int value) {
    return g_dmtx.call<&dmtxEncodeSetProp>("dmtxEncodeSetProp", DmtxFail, encode, property, value);
}

DmtxPassFail dmtxEncodeDataMatrix(DmtxEncode* encode, int count, unsigned char* data) {
    return g_dmtx.call<&dmtxEncodeDataMatrix>("dmtxEncodeDataMatrix", DmtxFail, encode, count,
                                              data);
}

int dmtxImageGetProp(DmtxImage* image, int property) {
    return g_dmtx.call<&dmtxImageGetProp>("dmtxImageGetProp", 0, image, property);
}
