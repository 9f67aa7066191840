#include "layer/fonts/p_font_glyphs_cache.h"

#include <algorithm>
#include <functional>
#include <list>
#include <mutex>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "layer/fonts/p_default_font_loader.h"
#include "layer/fonts/ttf_helper.h"

namespace {

const wchar_t kDefaultFontName[] = L"default";

// What an entry costs beside its pixels: list and hash nodes, the glyph, its image and
// properties, the font name.
constexpr std::size_t kEntryOverhead = 256;

// A font is told apart by its name alone.
struct GlyphKey {
    std::wstring font;
    unsigned int size;
    unsigned int code;
    bool dull;

    bool operator==(const GlyphKey& other) const {
        return std::tie(font, size, code, dull) ==
               std::tie(other.font, other.size, other.code, other.dull);
    }
};

struct GlyphKeyHash {
    std::size_t operator()(const GlyphKey& key) const noexcept {
        std::size_t h = std::hash<std::wstring>()(key.font);
        for (std::size_t part :
             {std::size_t(key.size), std::size_t(key.code), std::size_t(key.dull)}) {
            h ^= part + 0x9E3779B97F4A7C15ull + (h << 6) + (h >> 2);
        }
        return h;
    }
};

struct Entry {
    GlyphKey key;
    PGlyph glyph;
    std::size_t bytes;
};

std::size_t costOf(const GlyphKey& key, const PGlyph& glyph) {
    return std::size_t(glyph.width()) * glyph.height() * 4 + key.font.size() * sizeof(wchar_t) +
           kEntryOverhead;
}

struct PFontGlyphsCachePrivate {
    std::mutex mutex;
    // The most recently used first.
    std::list<Entry> entries;
    std::unordered_map<GlyphKey, std::list<Entry>::iterator, GlyphKeyHash> index;
    unsigned int count = 0;
    std::size_t bytes = 0;
    // The ascender and descender that the first call of getDull settled for a font and size;
    // they outlive the dull glyph's image, so that a later picture draws the same.
    std::map<std::pair<std::wstring, unsigned int>, std::pair<int, int>> dullMetrics;

    // Under the lock, as everything below.
    const PGlyph* find(const GlyphKey& key) {
        const auto found = index.find(key);
        if (found == index.end()) {
            return nullptr;
        }
        entries.splice(entries.begin(), entries, found->second);
        return &found->second->glyph;
    }

    void erase(std::list<Entry>::iterator entry) {
        bytes -= entry->bytes;
        count -= entry->key.dull ? 0 : 1;
        index.erase(entry->key);
        entries.erase(entry);
    }

    void store(const GlyphKey& key, const PGlyph& glyph) {
        const auto found = index.find(key);
        if (found != index.end()) {
            erase(found->second);
        }
        const std::size_t cost = costOf(key, glyph);
        if (cost > PFontGlyphsCache::kLargestKept) {
            return;
        }
        entries.push_front(Entry{key, glyph, cost});
        index.emplace(key, entries.begin());
        bytes += cost;
        count += key.dull ? 0 : 1;
        while (bytes > PFontGlyphsCache::kByteBudget) {
            erase(std::prev(entries.end()));
        }
    }
};

PFontGlyphsCachePrivate& cache() {
    static PFontGlyphsCachePrivate instance;
    return instance;
}

bool isBuiltIn(const PFontInfo& font) {
    return font.name.empty() || font.name == kDefaultFontName;
}

// Glyphs of the built-in font are stored when it has them; the codes it lacks are looked for
// again at every drawing.
void loadBuiltIn(const PFontInfo& font, unsigned int size, const std::vector<unsigned int>& codes,
                 std::map<unsigned int, PGlyph>& result) {
    PDefaultFontLoader::initializeFonts();
    for (unsigned int code : codes) {
        const PGlyph glyph = PDefaultFontLoader::getGlyph(static_cast<int>(size), code);
        if (glyph.isValid()) {
            PFontGlyphsCache::storeGlyph(font, size, code, glyph);
            result[code] = glyph;
        }
    }
}

// The stored glyphs of the codes into result; the codes the store lacks, in ascending order.
std::vector<unsigned int> takeStored(const PFontInfo& font, unsigned int size,
                                     const std::vector<unsigned int>& codes,
                                     std::map<unsigned int, PGlyph>& result) {
    std::vector<unsigned int> missing;
    for (unsigned int code : std::set<unsigned int>(codes.begin(), codes.end())) {
        PGlyph glyph = PFontGlyphsCache::getGlyph(font, size, code);
        if (glyph.isValid()) {
            result[code] = std::move(glyph);
        } else {
            missing.push_back(code);
        }
    }
    return missing;
}

}  // namespace

unsigned int PFontGlyphsCache::size() {
    std::lock_guard<std::mutex> lock(cache().mutex);
    return cache().count;
}

bool PFontGlyphsCache::empty() {
    std::lock_guard<std::mutex> lock(cache().mutex);
    return cache().count == 0;
}

std::size_t PFontGlyphsCache::bytes() {
    std::lock_guard<std::mutex> lock(cache().mutex);
    return cache().bytes;
}

void PFontGlyphsCache::clear() {
    std::lock_guard<std::mutex> lock(cache().mutex);
    auto& entries = cache().entries;
    for (auto entry = entries.begin(); entry != entries.end();) {
        const auto next = std::next(entry);
        if (!entry->key.dull) {
            cache().erase(entry);
        }
        entry = next;
    }
}

PGlyph PFontGlyphsCache::getGlyph(const PFontInfo& font, unsigned int size, unsigned int code) {
    std::lock_guard<std::mutex> lock(cache().mutex);
    const PGlyph* glyph = cache().find(GlyphKey{font.name, size, code, false});
    return glyph ? *glyph : PGlyph();
}

void PFontGlyphsCache::storeGlyph(const PFontInfo& font, unsigned int size, unsigned int code,
                                  const PGlyph& glyph) {
    std::lock_guard<std::mutex> lock(cache().mutex);
    cache().store(GlyphKey{font.name, size, code, false}, glyph);
}

PGlyph PFontGlyphsCache::getDull(const PFontInfo& font, unsigned int size, int ascender,
                                 int descender) {
    const unsigned int side = std::max(size, 2u);
    std::lock_guard<std::mutex> lock(cache().mutex);
    const GlyphKey key{font.name, side, 0, true};
    if (const PGlyph* dull = cache().find(key)) {
        return *dull;
    }
    const auto settled =
        cache().dullMetrics.try_emplace({font.name, side}, ascender, descender).first->second;
    PGlyphMetrics metrics;
    metrics.width = static_cast<int>(side / 2);
    metrics.height = static_cast<int>(side);
    metrics.horiBearingY = static_cast<int>(side);
    metrics.horiAdvance = static_cast<int>(side / 2);
    metrics.ascender = settled.first;
    metrics.descender = settled.second;
    PGlyph dull(PImage(side / 2, side, PColor(PGlyph::kBackground, PColor::kNative)), metrics);
    dull.properties.setValue(PGlyph::kDullKey, "true");
    cache().store(key, dull);
    return dull;
}

std::map<unsigned int, PGlyph> PFontGlyphsCache::loadGlyphs(
    const PFontInfo& font, unsigned int size, const std::vector<unsigned int>& codes) {
    std::map<unsigned int, PGlyph> result;
    const std::vector<unsigned int> missing = takeStored(font, size, codes, result);
    if (missing.empty()) {
        return result;
    }
    // The built-in font needs no FreeType.
    if (!isBuiltIn(font)) {
        TTFHelper freeType;
        if (freeType.isStarted()) {
            for (auto& [code, glyph] : freeType.loadGlyphs(font, size, missing)) {
                storeGlyph(font, size, code, glyph);
                result[code] = std::move(glyph);
            }
            return result;
        }
    }
    loadBuiltIn(font, size, missing, result);
    return result;
}

std::map<unsigned int, PGlyph> PFontGlyphsCache::loadMetrics(
    const PFontInfo& font, unsigned int size, const std::vector<unsigned int>& codes) {
    if (size <= kWholeGlyphSize || isBuiltIn(font)) {
        return loadGlyphs(font, size, codes);
    }
    std::map<unsigned int, PGlyph> result;
    const std::vector<unsigned int> missing = takeStored(font, size, codes, result);
    if (missing.empty()) {
        return result;
    }
    TTFHelper freeType;
    if (!freeType.isStarted()) {
        loadBuiltIn(font, size, missing, result);
        return result;
    }
    for (auto& [code, glyph] : freeType.loadMetrics(font, size, missing)) {
        if (!glyph.pending) {
            storeGlyph(font, size, code, glyph);
        }
        result[code] = std::move(glyph);
    }
    return result;
}

PGlyph PFontGlyphsCache::loadGlyphPart(const PFontInfo& font, unsigned int size, unsigned int code,
                                       const TTFHelper::WindowOf& windowOf) {
    PGlyph stored = getGlyph(font, size, code);
    if (stored.isValid()) {
        return stored;
    }
    if (!isBuiltIn(font)) {
        TTFHelper freeType;
        if (freeType.isStarted()) {
            return freeType.loadGlyphPart(font, size, code, windowOf);
        }
    }
    std::map<unsigned int, PGlyph> result;
    loadBuiltIn(font, size, {code}, result);
    return result.count(code) ? result[code] : PGlyph();
}
