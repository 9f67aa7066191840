#pragma once

#ifdef __ANDROID__
#include <android/log.h>
#else
#include <cstdarg>

// Off Android the log goes to standard error, through the same call.
enum { ANDROID_LOG_INFO = 4 };

int __android_log_vprint(int priority, const char* tag, const char* format, va_list args);
#endif
