#include "layer/foundation/trace.h"

#include <cstdarg>

#include "layer/foundation/android_log.h"

void trace(const char* format, ...) {
    va_list args;
    va_start(args, format);
    __android_log_vprint(ANDROID_LOG_INFO, "BarcodeLib", format, args);
    va_end(args);
}

namespace BarcodeVelko {
void SetupLogging() {}
}  // namespace BarcodeVelko
