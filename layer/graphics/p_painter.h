#pragma once

#include <memory>
#include <string>

#include "layer/graphics/p_color.h"

class PAbstractPaintDevice;
class PFontInfo;
class PImage;
struct PTextOptions;
struct PPainterPrivate;

// Draws on one paint device at a time, pixel by pixel through its interface: no blending,
// whatever falls outside the device is dropped by it.
class PPainter {
public:
    // drawImage: w and h cut the image instead of being ignored.
    static constexpr int kClipToSize = 8;

    explicit PPainter(PAbstractPaintDevice* device = nullptr);
    PPainter(const PPainter&) = delete;
    PPainter& operator=(const PPainter&) = delete;
    virtual ~PPainter();

    // False, keeping the first device, if the painter already has one.
    bool begin(PAbstractPaintDevice* device);
    void end();

    void setPen(const PColor& color);
    void setBrush(const PColor& color);

    void fill(unsigned int value);
    // Filled with the brush, cut at the device's right and bottom edges.
    void drawRect(int x, int y, int w, int h);
    // In the pen colour, from the left end up to but not including the right end; a vertical
    // line draws nothing.
    void drawLine(int x1, int y1, int x2, int y2, int width);
    // Copies from the image's pixel (0, 0) to (x, y); pixels off the device are dropped.
    void drawImage(int x, int y, int w, int h, const PImage& image, int flags);
    // One line of text in the pen's colour on glyph cells of transparent white, its top left at
    // (x, y); see PFontDrawHelper.
    void drawText(int x, int y, int w, int h, const std::wstring& text, const PFontInfo& font,
                  unsigned int size, const PTextOptions& options);

private:
    std::unique_ptr<PPainterPrivate> d;
};
