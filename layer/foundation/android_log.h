#pragma once

// VELKO_HAVE_ANDROID_LOG is set by the build where liblog is found: the NDK's on Android,
// Debian's elsewhere. Without it a stand-in writes the same lines to standard error.
#ifdef VELKO_HAVE_ANDROID_LOG
#include <android/log.h>
#else
#include <cstdarg>

enum { ANDROID_LOG_INFO = 4 };

int __android_log_vprint(int priority, const char* tag, const char* format, va_list args);
#endif
