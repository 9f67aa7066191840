#include "layer/fonts/p_font_draw_helper.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <type_traits>
#include <vector>

#include "layer/fonts/p_font_glyphs_cache.h"
#include "layer/graphics/p_painter.h"
#include "layer/graphics/p_rect.h"

namespace {

// The entry of the local glyphs that holds the dull glyph of the font and size.
constexpr unsigned int kDullCode = 0;

unsigned int loadPixel(const unsigned char* p) {
    return static_cast<unsigned int>(p[0]) | static_cast<unsigned int>(p[1]) << 8 |
           static_cast<unsigned int>(p[2]) << 16 | static_cast<unsigned int>(p[3]) << 24;
}

void storePixel(unsigned char* p, unsigned int value) {
    p[0] = static_cast<unsigned char>(value);
    p[1] = static_cast<unsigned char>(value >> 8);
    p[2] = static_cast<unsigned char>(value >> 16);
    p[3] = static_cast<unsigned char>(value >> 24);
}

}  // namespace

class PFontDrawHelperPrivate {
public:
    template <class T>
    void draw(const std::basic_string<T>& text, int& x, int& y, unsigned int w, unsigned int h,
              const PTextOptions& options);
    template <class T>
    void cacheGlyphs(const std::basic_string<T>& text);

    // The glyph in the helper's colours: ink and background in one pass, so that neither
    // colour can be mistaken for the other whatever pen and brush are.
    PGlyph recolored(PGlyph glyph) const;
    PGlyph blankGlyph(const PTextOptions& options) const;

    PAbstractPaintDevice* device = nullptr;
    PFontInfo font;
    unsigned int fontSize = 12;
    unsigned int brush = PGlyph::kBackground;
    unsigned int pen = PGlyph::kInk;
    // Copies of the cached glyphs in the current pen and brush.
    std::map<unsigned int, PGlyph> glyphs;
};

PGlyph PFontDrawHelperPrivate::recolored(PGlyph glyph) const {
    if ((brush == PGlyph::kBackground && pen == PGlyph::kInk) || !glyph.isValid()) {
        return glyph;
    }
    unsigned char* pixel = glyph.pixelData();
    const unsigned long count = static_cast<unsigned long>(glyph.width()) * glyph.height();
    for (unsigned long i = 0; i < count; ++i, pixel += 4) {
        const unsigned int value = loadPixel(pixel);
        if (value == PGlyph::kBackground) {
            storePixel(pixel, brush);
        } else if (value == PGlyph::kInk) {
            storePixel(pixel, pen);
        }
    }
    return glyph;
}

PGlyph PFontDrawHelperPrivate::blankGlyph(const PTextOptions& options) const {
    if (options.dullWidth == 0) {
        return glyphs.at(kDullCode);
    }
    PGlyphMetrics metrics;
    metrics.width = metrics.horiAdvance = static_cast<int>(options.dullWidth);
    metrics.height = metrics.horiBearingY = metrics.ascender = static_cast<int>(fontSize);
    PGlyph blank(PImage(options.dullWidth, fontSize, PColor(brush, PColor::kNative)), metrics);
    blank.properties.setValue(PGlyph::kDullKey, "true");
    return blank;
}

template <class T>
void PFontDrawHelperPrivate::cacheGlyphs(const std::basic_string<T>& text) {
    std::set<unsigned int> distinct;
    for (T c : text) {
        distinct.insert(static_cast<unsigned int>(static_cast<std::make_unsigned_t<T>>(c)));
    }
    const std::vector<unsigned int> codes(distinct.begin(), distinct.end());
    PFontGlyphsCache::loadGlyphs(font, fontSize, codes);
    if (glyphs.empty()) {
        glyphs[kDullCode] =
            recolored(PFontGlyphsCache::getDull(font, fontSize, static_cast<int>(fontSize), 0));
    }
    for (unsigned int code : codes) {
        if (glyphs.count(code) == 0) {
            glyphs[code] = recolored(PFontGlyphsCache::getGlyph(font, fontSize, code));
        }
    }
}

template <class T>
void PFontDrawHelperPrivate::draw(const std::basic_string<T>& text, int& x, int& y, unsigned int w,
                                  unsigned int h, const PTextOptions& options) {
    if (text.empty() || fontSize == 0 || !device) {
        return;
    }
    cacheGlyphs(text);
    const PGlyph blank = blankGlyph(options);
    std::vector<const PGlyph*> line;
    line.reserve(text.size());
    long long total = 0;
    int lineHeight = 0;
    for (T c : text) {
        const PGlyph& glyph =
            glyphs[static_cast<unsigned int>(static_cast<std::make_unsigned_t<T>>(c))];
        const PGlyph* shown = glyph.isDull() ? &blank : &glyph;
        line.push_back(shown);
        total += shown->metrics.horiAdvance;
        lineHeight =
            std::max(lineHeight, std::abs(shown->metrics.descender) + shown->metrics.ascender);
    }

    unsigned int extra = 0;
    if (options.justify && w != 0 && w > total && text.size() > 1) {
        extra = static_cast<unsigned int>((w - total) / (text.size() - 1));
    }
    // Wide, so that no pen position can overflow the sums.
    using Rect = PRect<long long, long long>;
    const long long deviceWidth = device->width();
    const Rect area(x, y, w != 0 ? w : deviceWidth - x, h != 0 ? h : lineHeight);
    const Rect clip = area.intersection(Rect(0, 0, deviceWidth, device->height()));
    if (clip.width == 0 || clip.height == 0) {
        return;
    }
    const auto rightLimit = static_cast<unsigned int>(clip.x + clip.width);
    PPainter painter(device);
    painter.setPen(PColor(pen, PColor::kNative));
    int px = x;
    for (const PGlyph* glyph : line) {
        if (static_cast<unsigned int>(px) > rightLimit) {
            break;
        }
        const PGlyphMetrics& m = glyph->metrics;
        painter.drawImage(px + m.horiBearingX, y + m.ascender - m.horiBearingY,
                          static_cast<int>(glyph->width()), static_cast<int>(glyph->height()),
                          *glyph, PPainter::kClipToSize);
        px += m.horiAdvance + static_cast<int>(extra);
    }
    x = px;
}

PFontDrawHelper::PFontDrawHelper() : d(std::make_unique<PFontDrawHelperPrivate>()) {}

PFontDrawHelper::~PFontDrawHelper() = default;

void PFontDrawHelper::setPaintDevice(PAbstractPaintDevice* device) {
    d->device = device;
}

bool PFontDrawHelper::setFont(const PFontInfo& font) {
    d->font = font;
    d->glyphs.clear();
    return true;
}

bool PFontDrawHelper::setFontSize(unsigned int size) {
    d->fontSize = size;
    d->glyphs.clear();
    return true;
}

unsigned int PFontDrawHelper::fontSize() const {
    return d->fontSize;
}

void PFontDrawHelper::setBackgroundBrush(unsigned int color) {
    if (color != d->brush) {
        d->brush = color;
        d->glyphs.clear();
    }
}

void PFontDrawHelper::setPen(unsigned int color) {
    if (color != d->pen) {
        d->pen = color;
        d->glyphs.clear();
    }
}

void PFontDrawHelper::draw(const std::string& text, int& x, int& y) {
    d->draw(text, x, y, 0, 0, PTextOptions());
}

void PFontDrawHelper::draw(char c, int& x, int& y) {
    d->draw(std::string(1, c), x, y, 0, 0, {});
}

void PFontDrawHelper::draw(const std::string& text, int& x, int& y, unsigned int w,
                           unsigned int h) {
    d->draw(text, x, y, w, h, PTextOptions());
}

void PFontDrawHelper::draw(const std::string& text, int& x, int& y, unsigned int w, unsigned int h,
                           const PTextOptions& options) {
    d->draw(text, x, y, w, h, options);
}

void PFontDrawHelper::draw(const std::wstring& text, int& x, int& y) {
    d->draw(text, x, y, 0, 0, PTextOptions());
}

void PFontDrawHelper::draw(wchar_t c, int& x, int& y) {
    d->draw(std::wstring(1, c), x, y, 0, 0, {});
}

void PFontDrawHelper::draw(const std::wstring& text, int& x, int& y, unsigned int w,
                           unsigned int h) {
    d->draw(text, x, y, w, h, PTextOptions());
}

void PFontDrawHelper::draw(const std::wstring& text, int& x, int& y, unsigned int w, unsigned int h,
                           const PTextOptions& options) {
    d->draw(text, x, y, w, h, options);
}
