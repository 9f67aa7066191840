#include "layer/foundation/android_log.h"

#ifndef VELKO_HAVE_ANDROID_LOG
#include <cstdio>
#include <string>

int __android_log_vprint(int priority, const char* tag, const char* format, va_list args) {
    va_list measure;
    va_copy(measure, args);
    const int length = std::vsnprintf(nullptr, 0, format, measure);
    va_end(measure);
    if (length < 0) {
        return length;
    }
    std::string text(static_cast<std::size_t>(length), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, args);
    // One write per line, so that lines of several threads don't mix.
    return std::fprintf(stderr, "%d %s: %s\n", priority, tag, text.c_str());
}
#endif

#ifdef VELKO_ANDROID_LOG_SONAME
#include "layer/foundation/deferred_library.h"

// Debian's port of the log, which brings the shared C++ runtime, is opened for the first line
// traced rather than linked (deferred_library.h).
int __android_log_vprint(int priority, const char* tag, const char* format, va_list args) {
    static const DeferredLibrary log(VELKO_ANDROID_LOG_SONAME);
    static const auto call = log.function<decltype(&__android_log_vprint)>("__android_log_vprint");
    return call ? call(priority, tag, format, args) : 0;
}
#endif
