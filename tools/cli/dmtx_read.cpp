#include "tools/cli/dmtx_read.h"

namespace VelkoCli {

std::string readWithLibdmtx(unsigned char* pixels, int width, int height, DmtxPackOrder pack) {
    DmtxImage* image = dmtxImageCreate(pixels, width, height, pack);
    if (!image) {
        return std::string();
    }
    DmtxDecode* decode = dmtxDecodeCreate(image, 1);
    DmtxRegion* region = decode ? dmtxRegionFindNext(decode, nullptr) : nullptr;
    DmtxMessage* message = region ? dmtxDecodeMatrixRegion(decode, region, DmtxUndefined) : nullptr;
    std::string bytes;
    if (message) {
        bytes.assign(reinterpret_cast<const char*>(message->output), message->outputIdx);
        dmtxMessageDestroy(&message);
    }
    dmtxRegionDestroy(&region);
    dmtxDecodeDestroy(&decode);
    dmtxImageDestroy(&image);
    return bytes;
}

}  // namespace VelkoCli
