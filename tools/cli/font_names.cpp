#include "tools/cli/font_names.h"

#include <fontconfig/fontconfig.h>

#include <memory>

#include "layer/foundation/string_helpers.h"

namespace VelkoCli {

namespace {

const char kTtfSuffix[] = ".ttf";

using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;

std::string lowerCase(const FcChar8* text) {
    return str_tolower(reinterpret_cast<const char*>(text));
}

// The i-th value of a string property, or null.
const FcChar8* stringOf(const FcPattern* pattern, const char* property, int i = 0) {
    FcChar8* value = nullptr;
    return FcPatternGetString(pattern, property, i, &value) == FcResultMatch ? value : nullptr;
}

bool hasValue(const FcPattern* pattern, const char* property, const std::string& lower) {
    for (int i = 0; const FcChar8* value = stringOf(pattern, property, i); ++i) {
        if (lowerCase(value) == lower) {
            return true;
        }
    }
    return false;
}

// The file's name without its folder and ".ttf"; empty for other files, which the library
// doesn't list.
std::string libraryNameOfFile(const FcPattern* font) {
    const FcChar8* file = stringOf(font, FC_FILE);
    if (!file) {
        return {};
    }
    std::string name(reinterpret_cast<const char*>(file));
    name.erase(0, name.rfind('/') + 1);
    const std::size_t suffix = name.size() - (sizeof kTtfSuffix - 1);
    if (name.size() <= sizeof kTtfSuffix - 1 ||
        name.compare(suffix, std::string::npos, kTtfSuffix)) {
        return {};
    }
    return name.substr(0, suffix);
}

}  // namespace

std::string libraryFontName(const std::string& fcName) {
    const Pattern asked(FcNameParse(reinterpret_cast<const FcChar8*>(fcName.c_str())),
                        &FcPatternDestroy);
    const FcChar8* family = asked ? stringOf(asked.get(), FC_FAMILY) : nullptr;
    if (!family) {
        return {};
    }
    const std::string wantedFamily = lowerCase(family);
    const FcChar8* style = stringOf(asked.get(), FC_STYLE);
    const std::string wantedStyle = style ? lowerCase(style) : std::string();
    const Pattern pattern(FcPatternDuplicate(asked.get()), &FcPatternDestroy);
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    const Pattern match(FcFontMatch(nullptr, pattern.get(), &result), &FcPatternDestroy);
    // fontconfig answers every name with some font: only the family and style asked for count.
    if (!match || !hasValue(match.get(), FC_FAMILY, wantedFamily) ||
        (style && !hasValue(match.get(), FC_STYLE, wantedStyle))) {
        return {};
    }
    return libraryNameOfFile(match.get());
}

std::map<std::string, std::string> fcFontNames() {
    std::map<std::string, std::string> names;
    const Pattern all(FcPatternCreate(), &FcPatternDestroy);
    const std::unique_ptr<FcObjectSet, decltype(&FcObjectSetDestroy)> properties(
        FcObjectSetBuild(FC_FILE, FC_FAMILY, FC_STYLE, nullptr), &FcObjectSetDestroy);
    const std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)> fonts(
        all && properties ? FcFontList(nullptr, all.get(), properties.get()) : nullptr,
        &FcFontSetDestroy);
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        const FcPattern* font = fonts->fonts[i];
        const FcChar8* family = stringOf(font, FC_FAMILY);
        const FcChar8* style = stringOf(font, FC_STYLE);
        const std::string name = libraryNameOfFile(font);
        if (family && style && !name.empty()) {
            names[name] = std::string(reinterpret_cast<const char*>(family)) +
                          ":style=" + reinterpret_cast<const char*>(style);
        }
    }
    return names;
}

}  // namespace VelkoCli
