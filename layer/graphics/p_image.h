#pragma once

#include <memory>

#include "layer/foundation/p_byte_array.h"
#include "layer/graphics/p_abstract_paint_device.h"
#include "layer/graphics/p_color.h"

struct PImagePrivate;

// A picture of 4-byte pixels, rows top to bottom without gaps. Copies share the pixels until
// one of them writes.
class PImage : public PAbstractPaintDevice {
public:
    static constexpr unsigned kMaxSide = 8000;

    // Empty and not valid.
    PImage();
    // Each side is cut to kMaxSide; an allocation that comes out empty leaves an empty image.
    PImage(unsigned int width, unsigned int height, const PColor& background);
    // Takes the bytes as they are, for a picture rebuilt from a buffer; neither their size nor
    // kMaxSide is checked.
    PImage(unsigned int width, unsigned int height, const PByteArray& bytes);
    PImage(const PImage& other);
    PImage& operator=(const PImage& other);
    ~PImage() override;

    void detach();
    bool isValid() const;

    unsigned width() const override;
    unsigned height() const override;
    unsigned bytesPerPixel() const override;
    unsigned pitch() const override;
    void setPixel(int x, int y, unsigned int value) override;
    unsigned int getPixel(int x, int y) const override;
    void fill(unsigned int value) override;
    void fillRect(int x, int y, unsigned width, unsigned height, unsigned int value) override;
    bool copyRect(int x, int y, unsigned width, unsigned height, int toX, int toY) override;
    void putRect(int x, int y, const unsigned char* pixels, unsigned pitch, unsigned width,
                 unsigned height) override;
    unsigned char* pixelData() override;
    const unsigned char* pixelData() const override;
    PByteArray data() const override;

    // Every pixel of the value of from gets the value of to.
    PImage& changeColor(const PColor& from, const PColor& to);

private:
    // Byte offset of a pixel, or -1 when it lies outside.
    long long offsetOf(int x, int y) const;

    std::shared_ptr<PImagePrivate> d;
};
