#pragma once

// The reading back of --verify, in a module of its own that the tool opens only for --verify:
// zxing-cpp, libdmtx's reader, LodePNG and the shared C++ runtime they bring cost every other
// run more at start than its whole barcode. C, so that the module's runtime and the tool's
// never meet.

#include <stddef.h>

#if defined(__GNUC__)
#define VELKO_READER_EXPORT __attribute__((visibility("default")))
#else
#define VELKO_READER_EXPORT
#endif

#ifdef __cplusplus
extern "C" {
#endif

// Given what was read: the symbology identifier ("]C1"; empty where the reader gives none) and
// the text, both valid for the call only.
typedef void (*VelkoTakeReading)(void* context, const char* symbology, const char* text,
                                 size_t size);

// Reads a PNG back as a scanner reads a label: composited over white, inside a quiet zone of
// quietModules modules on each side. format is zxing-cpp's name of the symbology; addOn asks for
// an EAN add-on. Returns 1 after passing what it read to take, 0 when nothing reads.
VELKO_READER_EXPORT int velko_read_picture(const unsigned char* png, size_t size,
                                           const char* format, unsigned quietModules, int addOn,
                                           VelkoTakeReading take, void* context);

#ifdef __cplusplus
}
#endif
