// fontconfig, opened for the first list of the system's fonts or the first font looked up by
// name (see deferred_library.h).
#include <fontconfig/fontconfig.h>

#include <cstdarg>

#include "layer/foundation/deferred_library.h"

namespace {

const DeferredLibrary g_fontconfig(VELKO_FONTCONFIG_SONAME);

}  // namespace

FcConfig* FcInitLoadConfigAndFonts() {
    static const auto call =
        g_fontconfig.function<decltype(&FcInitLoadConfigAndFonts)>("FcInitLoadConfigAndFonts");
    return call ? call() : nullptr;
}

void FcConfigDestroy(FcConfig* config) {
    static const auto call = g_fontconfig.function<decltype(&FcConfigDestroy)>("FcConfigDestroy");
    if (call) {
        call(config);
    }
}

FcPattern* FcPatternCreate() {
    static const auto call = g_fontconfig.function<decltype(&FcPatternCreate)>("FcPatternCreate");
    return call ? call() : nullptr;
}

void FcPatternDestroy(FcPattern* pattern) {
    static const auto call = g_fontconfig.function<decltype(&FcPatternDestroy)>("FcPatternDestroy");
    if (call) {
        call(pattern);
    }
}

FcResult FcPatternGetString(const FcPattern* pattern, const char* object, int n, FcChar8** s) {
    static const auto call =
        g_fontconfig.function<decltype(&FcPatternGetString)>("FcPatternGetString");
    return call ? call(pattern, object, n, s) : FcResultNoMatch;
}

// The variadic form goes through the library's va_list form.
FcObjectSet* FcObjectSetBuild(const char* first, ...) {
    static const auto call =
        g_fontconfig.function<decltype(&FcObjectSetVaBuild)>("FcObjectSetVaBuild");
    if (!call) {
        return nullptr;
    }
    va_list rest;
    va_start(rest, first);
    FcObjectSet* set = call(first, rest);
    va_end(rest);
    return set;
}

void FcObjectSetDestroy(FcObjectSet* set) {
    static const auto call =
        g_fontconfig.function<decltype(&FcObjectSetDestroy)>("FcObjectSetDestroy");
    if (call) {
        call(set);
    }
}

FcFontSet* FcFontList(FcConfig* config, FcPattern* pattern, FcObjectSet* objects) {
    static const auto call = g_fontconfig.function<decltype(&FcFontList)>("FcFontList");
    return call ? call(config, pattern, objects) : nullptr;
}

void FcFontSetDestroy(FcFontSet* set) {
    static const auto call = g_fontconfig.function<decltype(&FcFontSetDestroy)>("FcFontSetDestroy");
    if (call) {
        call(set);
    }
}

FcPattern* FcNameParse(const FcChar8* name) {
    static const auto call = g_fontconfig.function<decltype(&FcNameParse)>("FcNameParse");
    return call ? call(name) : nullptr;
}

FcPattern* FcPatternDuplicate(const FcPattern* pattern) {
    static const auto call =
        g_fontconfig.function<decltype(&FcPatternDuplicate)>("FcPatternDuplicate");
    return call ? call(pattern) : nullptr;
}

FcBool FcConfigSubstitute(FcConfig* config, FcPattern* pattern, FcMatchKind kind) {
    static const auto call =
        g_fontconfig.function<decltype(&FcConfigSubstitute)>("FcConfigSubstitute");
    return call ? call(config, pattern, kind) : FcFalse;
}

void FcDefaultSubstitute(FcPattern* pattern) {
    static const auto call =
        g_fontconfig.function<decltype(&FcDefaultSubstitute)>("FcDefaultSubstitute");
    if (call) {
        call(pattern);
    }
}

FcPattern* FcFontMatch(FcConfig* config, FcPattern* pattern, FcResult* result) {
    static const auto call = g_fontconfig.function<decltype(&FcFontMatch)>("FcFontMatch");
    return call ? call(config, pattern, result) : nullptr;
}
