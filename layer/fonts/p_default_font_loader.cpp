#include "layer/fonts/p_default_font_loader.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <utility>

#include "data/def_font_data.h"
#include "layer/fonts/p_glyph_stump.h"

namespace {

// Glyphs are unpacked one by one as texts ask for them, a label needing a dozen of the table's
// three thousand; a glyph once made is handed out again, its pixels shared.
struct PDefaultFontLoaderPrivate {
    std::mutex mutex;
    bool initialized = false;
    std::map<std::pair<int, unsigned int>, PGlyph> glyphs;
};

PDefaultFontLoaderPrivate& loader() {
    static PDefaultFontLoaderPrivate instance;
    return instance;
}

struct BySize {
    bool operator()(const PGlyphStump& stump, int size) const { return stump.size < size; }
    bool operator()(int size, const PGlyphStump& stump) const { return size < stump.size; }
};

// The record of this size and code, the later of two; null when there is none.
const PGlyphStump* findStump(int size, unsigned int code) {
    const PGlyphStump* begin = def_font_data;
    const PGlyphStump* end = def_font_data + def_font_data_count;
    const auto bySize = std::equal_range(begin, end, size, BySize());
    for (const PGlyphStump* stump = bySize.second; stump != bySize.first;) {
        if ((--stump)->code == code) {
            return stump;
        }
    }
    return nullptr;
}

}  // namespace

bool PDefaultFontLoader::initializeFonts() {
    std::lock_guard<std::mutex> lock(loader().mutex);
    loader().initialized = def_font_data_count > 0;
    return loader().initialized;
}

bool PDefaultFontLoader::deinitializeFonts() {
    std::lock_guard<std::mutex> lock(loader().mutex);
    loader().glyphs.clear();
    loader().initialized = false;
    return true;
}

bool PDefaultFontLoader::isInitialized() {
    std::lock_guard<std::mutex> lock(loader().mutex);
    return loader().initialized;
}

PGlyph PDefaultFontLoader::getGlyph(int size, const unsigned int& code) {
    std::lock_guard<std::mutex> lock(loader().mutex);
    if (!loader().initialized) {
        return PGlyph();
    }
    auto& glyphs = loader().glyphs;
    const auto key = std::make_pair(size, code);
    const auto made = glyphs.find(key);
    if (made != glyphs.end()) {
        return made->second;
    }
    const PGlyphStump* stump = findStump(size, code);
    return stump ? glyphs.emplace(key, stump2Glyph(*stump)).first->second : PGlyph();
}
