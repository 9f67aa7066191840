#include "layer/fonts/p_font_glyphs_cache.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <set>
#include <unordered_map>

#include "layer/fonts/p_default_font_loader.h"
#include "layer/fonts/ttf_helper.h"

namespace {

const wchar_t kDefaultFontName[] = L"default";

struct PFontGlyphsCachePrivate {
    std::mutex mutex;
    unsigned int count = 0;
    std::unordered_map<PFontInfo, std::map<unsigned int, std::map<unsigned int, PGlyph>>> glyphs;
    std::unordered_map<PFontInfo, std::map<unsigned int, PGlyph>> dulls;
};

PFontGlyphsCachePrivate& cache() {
    static PFontGlyphsCachePrivate instance;
    return instance;
}

}  // namespace

unsigned int PFontGlyphsCache::size() {
    std::lock_guard<std::mutex> lock(cache().mutex);
    return cache().count;
}

bool PFontGlyphsCache::empty() {
    std::lock_guard<std::mutex> lock(cache().mutex);
    return cache().glyphs.empty();
}

void PFontGlyphsCache::clear() {
    std::lock_guard<std::mutex> lock(cache().mutex);
    cache().glyphs.clear();
    cache().count = 0;
}

PGlyph PFontGlyphsCache::getGlyph(const PFontInfo& font, unsigned int size, unsigned int code) {
    std::lock_guard<std::mutex> lock(cache().mutex);
    const auto& glyphs = cache().glyphs;
    const auto fontEntry = glyphs.find(font);
    if (fontEntry == glyphs.end()) {
        return PGlyph();
    }
    const auto sizeEntry = fontEntry->second.find(size);
    if (sizeEntry == fontEntry->second.end()) {
        return PGlyph();
    }
    const auto codeEntry = sizeEntry->second.find(code);
    return codeEntry == sizeEntry->second.end() ? PGlyph() : codeEntry->second;
}

void PFontGlyphsCache::storeGlyph(const PFontInfo& font, unsigned int size, unsigned int code,
                                  const PGlyph& glyph) {
    std::lock_guard<std::mutex> lock(cache().mutex);
    auto& codes = cache().glyphs[font][size];
    if (codes.insert_or_assign(code, glyph).second) {
        ++cache().count;
    }
}

PGlyph PFontGlyphsCache::getDull(const PFontInfo& font, unsigned int size, int ascender,
                                 int descender) {
    const unsigned int side = std::max(size, 2u);
    std::lock_guard<std::mutex> lock(cache().mutex);
    PGlyph& dull = cache().dulls[font][side];
    if (!dull.isValid()) {
        PGlyphMetrics metrics;
        metrics.width = static_cast<int>(side / 2);
        metrics.height = static_cast<int>(side);
        metrics.horiBearingY = static_cast<int>(side);
        metrics.horiAdvance = static_cast<int>(side / 2);
        metrics.ascender = ascender;
        metrics.descender = descender;
        dull =
            PGlyph(PImage(side / 2, side, PColor(PGlyph::kBackground, PColor::kNative)), metrics);
        dull.properties.setValue(PGlyph::kDullKey, "true");
    }
    return dull;
}

void PFontGlyphsCache::loadGlyphs(const PFontInfo& font, unsigned int size,
                                  const std::vector<unsigned int>& codes) {
    const std::set<unsigned int> distinct(codes.begin(), codes.end());
    std::vector<unsigned int> missing;
    for (unsigned int code : distinct) {
        if (!getGlyph(font, size, code).isValid()) {
            missing.push_back(code);
        }
    }
    if (missing.empty()) {
        return;
    }
    // The built-in font needs no FreeType, and codes it lacks come back here at every drawing.
    if (!font.name.empty() && font.name != kDefaultFontName) {
        TTFHelper freeType;
        if (freeType.isStarted()) {
            for (const auto& [code, glyph] : freeType.loadGlyphs(font, size, missing)) {
                storeGlyph(font, size, code, glyph);
            }
            return;
        }
    }
    PDefaultFontLoader::initializeFonts();
    for (unsigned int code : missing) {
        const PGlyph glyph = PDefaultFontLoader::getGlyph(static_cast<int>(size), code);
        if (glyph.isValid()) {
            storeGlyph(font, size, code, glyph);
        }
    }
}
