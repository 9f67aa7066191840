#include "layer/fonts/ttf_helper.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <atomic>
#include <fstream>
#include <mutex>
#include <set>

#include "host/text_forms.h"
#include "layer/fonts/p_font_glyphs_cache.h"
#include "layer/foundation/p_byte_array.h"

namespace {

constexpr unsigned char kGreyThreshold = 32;
std::atomic<unsigned int> startCount{0};

PByteArray readFile(const std::wstring& path) {
    std::ifstream file(wstr2str(path), std::ios::binary | std::ios::ate);
    if (!file) {
        return PByteArray();
    }
    const std::streamoff size = file.tellg();
    if (size <= 0) {
        return PByteArray();
    }
    PByteArray bytes(static_cast<unsigned char>(0), static_cast<unsigned long>(size));
    file.seekg(0);
    file.read(reinterpret_cast<char*>(bytes.data()), size);
    return file ? bytes : PByteArray();
}

}  // namespace

struct TTFHelperPrivate {
    TTFHelperPrivate() {
        std::lock_guard<std::mutex> lock(mutex);
        if (!library) {
            ++startCount;
            error = FT_Init_FreeType(&library);
            if (error) {
                library = nullptr;
            }
        }
    }
    ~TTFHelperPrivate() {
        std::lock_guard<std::mutex> lock(mutex);
        if (library) {
            FT_Done_FreeType(library);
            library = nullptr;
        }
    }
    TTFHelperPrivate(const TTFHelperPrivate&) = delete;
    TTFHelperPrivate& operator=(const TTFHelperPrivate&) = delete;

    std::mutex mutex;
    FT_Library library = nullptr;
    FT_Error error = 0;
};

TTFHelper::TTFHelper() : d(std::make_shared<TTFHelperPrivate>()) {}

TTFHelper::~TTFHelper() = default;

bool TTFHelper::isStarted() const {
    return d->library != nullptr;
}

unsigned int TTFHelper::libraryStartCount() {
    return startCount;
}

PImage TTFHelper::bitmapToImage(const unsigned char* buffer, unsigned int width, unsigned int rows,
                                int pitch, int pixelMode) {
    if (!buffer || width == 0 || rows == 0 ||
        (pixelMode != FT_PIXEL_MODE_MONO && pixelMode != FT_PIXEL_MODE_GRAY)) {
        return PImage();
    }
    PImage image(width, rows, PColor(PGlyph::kBackground, PColor::kNative));
    const unsigned char* row = pitch < 0 ? buffer - static_cast<long>(rows - 1) * pitch : buffer;
    for (unsigned int y = 0; y < rows; ++y, row += pitch) {
        for (unsigned int x = 0; x < width; ++x) {
            const bool ink = pixelMode == FT_PIXEL_MODE_GRAY
                                 ? row[x] > kGreyThreshold
                                 : (row[x / 8] & (0x80 >> (x % 8))) != 0;
            if (ink) {
                image.setPixel(static_cast<int>(x), static_cast<int>(y), PGlyph::kInk);
            }
        }
    }
    return image;
}

std::map<unsigned int, PGlyph> TTFHelper::loadGlyphs(const PFontInfo& font, unsigned int size,
                                                     const std::vector<unsigned int>& codes) const {
    std::map<unsigned int, PGlyph> result;
    if (font.name == L"default" || !d->library) {
        return result;
    }
    const std::set<unsigned int> distinct(codes.begin(), codes.end());
    // The face reads from these bytes, so they outlive it.
    const PByteArray bytes = font.isValid() ? readFile(font.file) : PByteArray();
    FT_Face face = nullptr;
    if (FT_New_Memory_Face(d->library, bytes.constData(), static_cast<FT_Long>(bytes.size()), 0,
                           &face)) {
        return result;
    }
    // The pixel size replaces the nominal one.
    if (FT_Set_Char_Size(face, 0, 1024, 96, 96) || FT_Set_Pixel_Sizes(face, 0, size)) {
        FT_Done_Face(face);
        return result;
    }
    for (unsigned int code : distinct) {
        const bool loaded = FT_Load_Char(face, code, FT_LOAD_RENDER) == 0;
        const int ascender = fromFixed(FT_MulFix(face->ascender, face->size->metrics.y_scale));
        const int descender = fromFixed(FT_MulFix(face->descender, face->size->metrics.y_scale));
        PGlyph glyph;
        if (loaded) {
            const FT_GlyphSlot slot = face->glyph;
            const FT_Bitmap& bitmap = slot->bitmap;
            PGlyphMetrics metrics;
            metrics.width = fromFixed(slot->metrics.width);
            metrics.height = fromFixed(slot->metrics.height);
            metrics.horiBearingX = fromFixed(slot->metrics.horiBearingX);
            metrics.horiBearingY = fromFixed(slot->metrics.horiBearingY);
            metrics.horiAdvance = fromFixed(slot->metrics.horiAdvance);
            metrics.vertBearingX = fromFixed(slot->metrics.vertBearingX);
            metrics.vertBearingY = fromFixed(slot->metrics.vertBearingY);
            metrics.vertAdvance = fromFixed(slot->metrics.vertAdvance);
            metrics.ascender = ascender;
            metrics.descender = descender;
            glyph = PGlyph(bitmapToImage(bitmap.buffer, bitmap.width, bitmap.rows, bitmap.pitch,
                                         bitmap.pixel_mode),
                           metrics);
        }
        if (!glyph.isValid()) {
            glyph = PFontGlyphsCache::getDull(font, size, ascender, descender);
        }
        result[code] = glyph;
    }
    FT_Done_Face(face);
    return result;
}
