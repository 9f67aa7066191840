#include "layer/fonts/p_font_draw_helper.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "layer/fonts/p_font_glyphs_cache.h"
#include "layer/fonts/ttf_helper.h"
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

// What PPainter::drawImage shows of an image at (left, top): it copies from the image's first
// pixel on, so that an image starting above or left of the device loses as many pixels at its
// far end as fall off the near one.
TTFHelper::Window shownPart(long long left, long long top, unsigned int width, unsigned int height,
                            long long deviceWidth, long long deviceHeight) {
    const auto span = [](long long start, long long length, long long room) {
        const long long from = std::max(0LL, -start);
        const long long to = std::min(length, room - start) - from;
        return std::make_pair(from, std::max(0LL, to - from));
    };
    const auto [x, w] = span(left, width, deviceWidth);
    const auto [y, h] = span(top, height, deviceHeight);
    return TTFHelper::Window(x, y, w, h);
}

// A character that will be drawn: its code, its glyph and where the glyph's cell goes.
struct PlacedGlyph {
    unsigned int code;
    const PGlyph* glyph;
    int x;
    // The part of a glyph larger than the device, when that is what is drawn.
    std::optional<PGlyph> part;
};

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
    // Gives the pending glyphs among those that will be drawn their images: whole when the
    // glyph fits the device, else only the part of it that the device shows.
    void makeImages(int y);

    PAbstractPaintDevice* device = nullptr;
    PFontInfo font;
    unsigned int fontSize = 12;
    unsigned int brush = PGlyph::kBackground;
    unsigned int pen = PGlyph::kInk;
    // Copies of the cached glyphs in the current pen and brush. Large glyphs may be pending
    // here until a line draws them.
    std::map<unsigned int, PGlyph> glyphs;
    // Kept from line to line, as a label draws several short lines in a row.
    std::vector<std::pair<unsigned int, const PGlyph*>> line;
    std::vector<PlacedGlyph> placed;
    PPainter painter;
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
    std::vector<unsigned int> missing;
    for (T c : text) {
        const auto code = static_cast<unsigned int>(static_cast<std::make_unsigned_t<T>>(c));
        if (glyphs.count(code) == 0) {
            missing.push_back(code);
        }
    }
    std::sort(missing.begin(), missing.end());
    missing.erase(std::unique(missing.begin(), missing.end()), missing.end());
    // Loaded before the dull glyph is asked for: a blank of a TrueType font settles the dull
    // glyph's metrics first.
    std::map<unsigned int, PGlyph> loaded;
    if (!missing.empty()) {
        loaded = PFontGlyphsCache::loadMetrics(font, fontSize, missing);
    }
    if (glyphs.empty()) {
        glyphs[kDullCode] =
            recolored(PFontGlyphsCache::getDull(font, fontSize, static_cast<int>(fontSize), 0));
    }
    for (unsigned int code : missing) {
        if (glyphs.count(code) == 0) {
            const auto found = loaded.find(code);
            glyphs[code] = found == loaded.end() ? PGlyph() : recolored(found->second);
        }
    }
}

void PFontDrawHelperPrivate::makeImages(int y) {
    const long long deviceWidth = device->width();
    const long long deviceHeight = device->height();
    std::vector<unsigned int> whole;
    for (const PlacedGlyph& p : placed) {
        const PGlyphMetrics& m = p.glyph->metrics;
        if (p.glyph->pending && m.width <= deviceWidth && m.height <= deviceHeight) {
            whole.push_back(p.code);
        }
    }
    if (!whole.empty()) {
        for (const auto& [code, glyph] : PFontGlyphsCache::loadGlyphs(font, fontSize, whole)) {
            glyphs[code] = recolored(glyph);
        }
    }
    // The same part of a glyph is made once, however often the line draws it there.
    std::map<std::tuple<unsigned int, long long, long long>, PGlyph> parts;
    for (PlacedGlyph& p : placed) {
        if (!p.glyph->pending) {
            continue;
        }
        const PGlyphMetrics& m = p.glyph->metrics;
        const long long left = static_cast<long long>(p.x) + m.horiBearingX;
        const long long top = static_cast<long long>(y) + m.ascender - m.horiBearingY;
        const auto [part, made] = parts.try_emplace({p.code, left, top});
        if (made) {
            part->second = recolored(PFontGlyphsCache::loadGlyphPart(
                font, fontSize, p.code, [=](unsigned int width, unsigned int height) {
                    return shownPart(left, top, width, height, deviceWidth, deviceHeight);
                }));
        }
        p.part = part->second;
    }
}

template <class T>
void PFontDrawHelperPrivate::draw(const std::basic_string<T>& text, int& x, int& y, unsigned int w,
                                  unsigned int h, const PTextOptions& options) {
    if (text.empty() || fontSize == 0 || !device) {
        return;
    }
    cacheGlyphs(text);
    // Made only for a line that shows one.
    std::optional<PGlyph> blank;
    const auto blankShown = [&]() -> const PGlyph& {
        if (!blank) {
            blank = blankGlyph(options);
        }
        return *blank;
    };
    line.clear();
    long long total = 0;
    int lineHeight = 0;
    for (T c : text) {
        const unsigned int code =
            static_cast<unsigned int>(static_cast<std::make_unsigned_t<T>>(c));
        const PGlyph& glyph = glyphs[code];
        const PGlyph* shown = glyph.isDull() ? &blankShown() : &glyph;
        line.emplace_back(code, shown);
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
    // Characters are cut whole at the right; the glyphs of those past the limit are never made.
    const auto rightLimit = static_cast<unsigned int>(clip.x + clip.width);
    placed.clear();
    int px = x;
    for (const auto& [code, glyph] : line) {
        if (static_cast<unsigned int>(px) > rightLimit) {
            break;
        }
        placed.push_back(PlacedGlyph{code, glyph, px, std::nullopt});
        px += glyph->metrics.horiAdvance + static_cast<int>(extra);
    }
    makeImages(y);

    painter.end();
    painter.begin(device);
    painter.setPen(PColor(pen, PColor::kNative));
    for (const PlacedGlyph& p : placed) {
        // A glyph that turned dull when its image was made keeps the place laid out for it.
        const PGlyph& glyph = p.glyph->pending    ? *p.part
                              : p.glyph->isDull() ? blankShown()
                                                  : *p.glyph;
        const PGlyphMetrics& m = glyph.metrics;
        painter.drawImage(p.x + m.horiBearingX, y + m.ascender - m.horiBearingY,
                          static_cast<int>(glyph.width()), static_cast<int>(glyph.height()), glyph,
                          PPainter::kClipToSize);
    }
    painter.end();
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

const PFontInfo& PFontDrawHelper::font() const {
    return d->font;
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
