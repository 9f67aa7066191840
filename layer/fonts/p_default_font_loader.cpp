#include "layer/fonts/p_default_font_loader.h"

#include <map>
#include <mutex>

#include "data/def_font_data.h"
#include "layer/fonts/p_glyph_stump.h"

namespace {

struct PDefaultFontLoaderPrivate {
    std::mutex mutex;
    std::map<int, std::map<unsigned int, PGlyph>> glyphs;
};

PDefaultFontLoaderPrivate& loader() {
    static PDefaultFontLoaderPrivate instance;
    return instance;
}

}  // namespace

bool PDefaultFontLoader::initializeFonts() {
    std::lock_guard<std::mutex> lock(loader().mutex);
    auto& glyphs = loader().glyphs;
    if (glyphs.empty()) {
        for (unsigned int i = 0; i < def_font_data_count; ++i) {
            const PGlyphStump& stump = def_font_data[i];
            glyphs[stump.size].insert_or_assign(stump.code, stump2Glyph(stump));
        }
    }
    return !glyphs.empty();
}

bool PDefaultFontLoader::deinitializeFonts() {
    std::lock_guard<std::mutex> lock(loader().mutex);
    loader().glyphs.clear();
    return true;
}

bool PDefaultFontLoader::isInitialized() {
    std::lock_guard<std::mutex> lock(loader().mutex);
    return !loader().glyphs.empty();
}

PGlyph PDefaultFontLoader::getGlyph(int size, const unsigned int& code) {
    std::lock_guard<std::mutex> lock(loader().mutex);
    const auto& glyphs = loader().glyphs;
    const auto sizeEntry = glyphs.find(size);
    if (sizeEntry == glyphs.end()) {
        return PGlyph();
    }
    const auto codeEntry = sizeEntry->second.find(code);
    return codeEntry == sizeEntry->second.end() ? PGlyph() : codeEntry->second;
}
