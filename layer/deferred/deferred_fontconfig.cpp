// fontconfig, opened for the first list of the system's fonts or the first font looked up by
// name (see deferred_library.h).
#include <fontconfig/fontconfig.h>

#include <cstdarg>

#include "layer/foundation/deferred_library.h"

namespace {

const DeferredLibrary g_fontconfig(VELKO_FONTCONFIG_SONAME);

}  // namespace

FcConfig* FcInitLoadConfigAndFonts() {
    return g_fontconfig.call<&FcInitLoadConfigAndFonts>("FcInitLoadConfigAndFonts", nullptr);
}

void FcConfigDestroy(FcConfig* config) {
    g_fontconfig.callIfThere<&FcConfigDestroy>("FcConfigDestroy", config);
}

FcPattern* FcPatternCreate() {
    return g_fontconfig.call<&FcPatternCreate>("FcPatternCreate", nullptr);
}

void FcPatternDestroy(FcPattern* pattern) {
    g_fontconfig.callIfThere<&FcPatternDestroy>("FcPatternDestroy", pattern);
}

FcResult FcPatternGetString(const FcPattern* pattern, const char* object, int n, FcChar8** s) {
    return g_fontconfig.call<&FcPatternGetString>("FcPatternGetString", FcResultNoMatch, pattern,
                                                  object, n, s);
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
    g_fontconfig.callIfThere<&FcObjectSetDestroy>("FcObjectSetDestroy", set);
}

FcFontSet* FcFontList(FcConfig* config, FcPattern* pattern, FcObjectSet* objects) {
    return g_fontconfig.call<&FcFontList>("FcFontList", nullptr, config, pattern, objects);
}

void FcFontSetDestroy(FcFontSet* set) {
    g_fontconfig.callIfThere<&FcFontSetDestroy>("FcFontSetDestroy", set);
}

FcPattern* FcNameParse(const FcChar8* name) {
    return g_fontconfig.call<&FcNameParse>("FcNameParse", nullptr, name);
}

FcPattern* FcPatternDuplicate(const FcPattern* pattern) {
    return g_fontconfig.call<&FcPatternDuplicate>("FcPatternDuplicate", nullptr, pattern);
}

FcBool FcConfigSubstitute(FcConfig* config, FcPattern* pattern, FcMatchKind kind) {
    return g_fontconfig.call<&FcConfigSubstitute>("FcConfigSubstitute", FcFalse, config, pattern,
                                                  kind);
}

void FcDefaultSubstitute(FcPattern* pattern) {
    g_fontconfig.callIfThere<&FcDefaultSubstitute>("FcDefaultSubstitute", pattern);
}

FcPattern* FcFontMatch(FcConfig* config, FcPattern* pattern, FcResult* result) {
    return g_fontconfig.call<&FcFontMatch>("FcFontMatch", nullptr, config, pattern, result);
}
