// LogoImage through the host's interfaces: the first byte picks the code type, the second the
// logo's share of the symbol in percent, and the rest is the file given as the logo, in Base64
// as the host passes it. Two pictures follow; the second has no logo any more. The checksums
// of the file's chunks are made right first.

#include <cstdlib>
#include <string>
#include <vector>

#include "tests/fuzz/fuzz_host.h"

using VelkoHost::ExtensionSession;

namespace {

constexpr int kCodeTypes = 25;

std::string base64(const uint8_t* data, size_t size) {
    static const char kAlphabet[] =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (size_t i = 0; i < size; i += 3) {
        const unsigned chunk = unsigned(data[i]) << 16 |
                               (i + 1 < size ? unsigned(data[i + 1]) << 8 : 0u) |
                               (i + 2 < size ? unsigned(data[i + 2]) : 0u);
        text += kAlphabet[chunk >> 18 & 63];
        text += kAlphabet[chunk >> 12 & 63];
        text += i + 1 < size ? kAlphabet[chunk >> 6 & 63] : '=';
        text += i + 2 < size ? kAlphabet[chunk & 63] : '=';
    }
    return text;
}

uint32_t crc32(const uint8_t* data, size_t size) {
    uint32_t crc = 0xFFFFFFFFu;
    for (size_t i = 0; i < size; ++i) {
        crc ^= data[i];
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
        }
    }
    return ~crc;
}

// Mutations would nearly always break a chunk's checksum, and the decoder would refuse the file
// before reading what was changed: every whole chunk gets its checksum made right.
std::vector<uint8_t> withChunkChecksums(const uint8_t* data, size_t size) {
    std::vector<uint8_t> png(data, data + size);
    size_t at = 8;
    while (at + 12 <= png.size()) {
        const size_t length = size_t(png[at]) << 24 | size_t(png[at + 1]) << 16 |
                              size_t(png[at + 2]) << 8 | size_t(png[at + 3]);
        if (length > png.size() - at - 12) {
            break;
        }
        const uint32_t crc = crc32(&png[at + 4], length + 4);
        for (int i = 0; i < 4; ++i) {
            png[at + 8 + length + i] = static_cast<uint8_t>(crc >> (24 - 8 * i));
        }
        at += length + 12;
    }
    return png;
}

}  // namespace

extern "C" int VelkoFuzzCodeType(const uint8_t* data, size_t size) {
    return size > 0 ? data[0] % kCodeTypes : -1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) {
        return 0;
    }
    ExtensionSession session(VelkoFuzz::library());
    if (!session.object()) {
        std::abort();
    }
    session.set("CodeAuto", false);
    // The type's own demo value, in a picture with room for a logo.
    session.set("CodeType", VelkoFuzzCodeType(data, size));
    session.set("Width", 300);
    session.set("Height", 300);
    const std::vector<uint8_t> png = withChunkChecksums(data + 2, size - 2);
    session.set("LogoImage", base64(png.data(), png.size()));
    session.set("LogoSizePercentFromBarcode", data[1] % 101);
    for (int picture = 0; picture < 2; ++picture) {
        session.getBarcode();
        VelkoFuzz::readEverything(session);
    }
    VelkoFuzz::checkBooks(session);
    return 0;
}
