#include "layer/fonts/ttf_helper.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <atomic>
#include <fstream>
#include <mutex>
#include <set>

#include "layer/fonts/p_font_glyphs_cache.h"
#include "layer/foundation/p_byte_array.h"
#include "layer/foundation/utf8.h"

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
    return bitmapToImage(buffer, width, rows, pitch, pixelMode, Window(0, 0, width, rows));
}

PImage TTFHelper::bitmapToImage(const unsigned char* buffer, unsigned int width, unsigned int rows,
                                int pitch, int pixelMode, const Window& window) {
    if (!buffer || width == 0 || rows == 0 ||
        (pixelMode != FT_PIXEL_MODE_MONO && pixelMode != FT_PIXEL_MODE_GRAY)) {
        return PImage();
    }
    const Window part = window.intersection(Window(0, 0, width, rows));
    if (part.width == 0 || part.height == 0) {
        return PImage();
    }
    PImage image(static_cast<unsigned>(part.width), static_cast<unsigned>(part.height),
                 PColor(PGlyph::kBackground, PColor::kNative));
    const long long step = pitch;
    const unsigned char* row =
        (pitch < 0 ? buffer - static_cast<long long>(rows - 1) * step : buffer) + part.y * step;
    for (long long y = 0; y < part.height; ++y, row += step) {
        for (long long x = 0; x < part.width; ++x) {
            const long long column = part.x + x;
            const bool ink = pixelMode == FT_PIXEL_MODE_GRAY
                                 ? row[column] > kGreyThreshold
                                 : (row[column / 8] & (0x80 >> (column % 8))) != 0;
            if (ink) {
                image.setPixel(static_cast<int>(x), static_cast<int>(y), PGlyph::kInk);
            }
        }
    }
    return image;
}

namespace {

// A face of one font file at one pixel size, closed with the object.
class OpenFace {
public:
    OpenFace(FT_Library library, const PFontInfo& font, unsigned int size) {
        if (!library || font.name == L"default") {
            return;
        }
        bytes = font.isValid() ? readFile(font.file) : PByteArray();
        if (FT_New_Memory_Face(library, bytes.constData(), static_cast<FT_Long>(bytes.size()), 0,
                               &face)) {
            face = nullptr;
            return;
        }
        // The pixel size replaces the nominal one.
        if (FT_Set_Char_Size(face, 0, 1024, 96, 96) || FT_Set_Pixel_Sizes(face, 0, size)) {
            FT_Done_Face(face);
            face = nullptr;
        }
    }
    ~OpenFace() {
        if (face) {
            FT_Done_Face(face);
        }
    }
    OpenFace(const OpenFace&) = delete;
    OpenFace& operator=(const OpenFace&) = delete;

    explicit operator bool() const { return face != nullptr; }

    // Loads a character; the font's ascender and descender at this size come out either way.
    bool load(unsigned int code, FT_Int32 flags, PGlyphMetrics& metrics) const {
        const bool loaded = FT_Load_Char(face, code, flags) == 0;
        metrics = PGlyphMetrics();
        metrics.ascender =
            TTFHelper::fromFixed(FT_MulFix(face->ascender, face->size->metrics.y_scale));
        metrics.descender =
            TTFHelper::fromFixed(FT_MulFix(face->descender, face->size->metrics.y_scale));
        if (loaded) {
            const FT_Glyph_Metrics& m = face->glyph->metrics;
            metrics.width = TTFHelper::fromFixed(m.width);
            metrics.height = TTFHelper::fromFixed(m.height);
            metrics.horiBearingX = TTFHelper::fromFixed(m.horiBearingX);
            metrics.horiBearingY = TTFHelper::fromFixed(m.horiBearingY);
            metrics.horiAdvance = TTFHelper::fromFixed(m.horiAdvance);
            metrics.vertBearingX = TTFHelper::fromFixed(m.vertBearingX);
            metrics.vertBearingY = TTFHelper::fromFixed(m.vertBearingY);
            metrics.vertAdvance = TTFHelper::fromFixed(m.vertAdvance);
        }
        return loaded;
    }

    // The loaded bitmap, or the part of it inside the window.
    PImage image(const TTFHelper::Window* window = nullptr) const {
        const FT_Bitmap& bitmap = face->glyph->bitmap;
        return window ? TTFHelper::bitmapToImage(bitmap.buffer, bitmap.width, bitmap.rows,
                                                 bitmap.pitch, bitmap.pixel_mode, *window)
                      : TTFHelper::bitmapToImage(bitmap.buffer, bitmap.width, bitmap.rows,
                                                 bitmap.pitch, bitmap.pixel_mode);
    }

    // Whether rendering the outline just loaded would give a bitmap: FreeType presets the
    // bitmap's size on every load.
    bool wouldRender() const {
        const FT_GlyphSlot slot = face->glyph;
        return slot->format == FT_GLYPH_FORMAT_OUTLINE && slot->bitmap.width != 0 &&
               slot->bitmap.rows != 0;
    }

    bool hasBitmap() const { return face->glyph->format == FT_GLYPH_FORMAT_BITMAP; }

    // The loaded bitmap's size when it can become an image, else an empty window.
    TTFHelper::Window bitmapArea() const {
        const FT_Bitmap& bitmap = face->glyph->bitmap;
        const bool usable = bitmap.buffer && (bitmap.pixel_mode == FT_PIXEL_MODE_MONO ||
                                              bitmap.pixel_mode == FT_PIXEL_MODE_GRAY);
        return usable ? TTFHelper::Window(0, 0, bitmap.width, bitmap.rows) : TTFHelper::Window();
    }

private:
    // The face reads from these bytes, so they outlive it.
    PByteArray bytes;
    FT_Face face = nullptr;
};

PGlyph dullGlyph(const PFontInfo& font, unsigned int size, const PGlyphMetrics& metrics) {
    return PFontGlyphsCache::getDull(font, size, metrics.ascender, metrics.descender);
}

}  // namespace

std::map<unsigned int, PGlyph> TTFHelper::loadGlyphs(const PFontInfo& font, unsigned int size,
                                                     const std::vector<unsigned int>& codes) const {
    std::map<unsigned int, PGlyph> result;
    const OpenFace face(d->library, font, size);
    if (!face) {
        return result;
    }
    for (unsigned int code : std::set<unsigned int>(codes.begin(), codes.end())) {
        PGlyphMetrics metrics;
        PGlyph glyph;
        if (face.load(code, FT_LOAD_RENDER, metrics)) {
            glyph = PGlyph(face.image(), metrics);
        }
        result[code] = glyph.isValid() ? glyph : dullGlyph(font, size, metrics);
    }
    return result;
}

std::map<unsigned int, PGlyph> TTFHelper::loadMetrics(
    const PFontInfo& font, unsigned int size, const std::vector<unsigned int>& codes) const {
    std::map<unsigned int, PGlyph> result;
    const OpenFace face(d->library, font, size);
    if (!face) {
        return result;
    }
    for (unsigned int code : std::set<unsigned int>(codes.begin(), codes.end())) {
        PGlyphMetrics metrics;
        PGlyph glyph;
        if (face.load(code, FT_LOAD_DEFAULT, metrics)) {
            if (face.hasBitmap()) {
                // A bitmap of the font's own is what rendering would give too.
                glyph = PGlyph(face.image(), metrics);
            } else if (face.wouldRender()) {
                glyph.metrics = metrics;
                glyph.pending = true;
            }
        }
        result[code] = glyph.isValid() || glyph.pending ? glyph : dullGlyph(font, size, metrics);
    }
    return result;
}

PGlyph TTFHelper::loadGlyphPart(const PFontInfo& font, unsigned int size, unsigned int code,
                                const WindowOf& windowOf) const {
    const OpenFace face(d->library, font, size);
    if (!face) {
        return PGlyph();
    }
    PGlyphMetrics metrics;
    const Window area = face.load(code, FT_LOAD_RENDER, metrics) ? face.bitmapArea() : Window();
    if (area.width == 0 || area.height == 0) {
        return dullGlyph(font, size, metrics);
    }
    const Window part =
        windowOf(static_cast<unsigned>(area.width), static_cast<unsigned>(area.height))
            .intersection(area);
    metrics.horiBearingX += static_cast<int>(part.x);
    metrics.horiBearingY -= static_cast<int>(part.y);
    return PGlyph(face.image(&part), metrics);
}
