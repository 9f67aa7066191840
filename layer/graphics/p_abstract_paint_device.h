#pragma once

#include <memory>

#include "layer/foundation/p_byte_array.h"

struct PSize {
    unsigned width = 0;
    unsigned height = 0;
};

// Anything that holds pixels of 32-bit values. Writes and reads outside the device are
// dropped or answer 0.
class PAbstractPaintDevice {
public:
    PAbstractPaintDevice() = default;
    PAbstractPaintDevice(const PAbstractPaintDevice&) = default;
    PAbstractPaintDevice& operator=(const PAbstractPaintDevice&) = default;
    virtual ~PAbstractPaintDevice() = default;

    virtual unsigned width() const = 0;
    virtual unsigned height() const = 0;
    virtual unsigned bytesPerPixel() const = 0;
    virtual void setPixel(int x, int y, unsigned int value) = 0;
    virtual unsigned int getPixel(int x, int y) const = 0;
    virtual void fill(unsigned int value) = 0;
    // Every pixel of the rectangle that lies on the device gets the value. Devices that hold
    // their pixels fill whole rows at a time; this one plots them.
    virtual void fillRect(int x, int y, unsigned width, unsigned height, unsigned int value);
    // Copies the rectangle at x, y to toX, toY on the same device; false, with nothing copied,
    // where either lies partly off the device or the device can't.
    virtual bool copyRect(int x, int y, unsigned width, unsigned height, int toX, int toY);
    // Writes width x height pixels of 4 bytes each, low byte first, their rows pitch bytes
    // apart, with the first at x, y; those off the device are dropped. Devices that hold their
    // pixels copy the rows; this one plots them.
    virtual void putRect(int x, int y, const unsigned char* pixels, unsigned pitch, unsigned width,
                         unsigned height);
    virtual unsigned char* pixelData() = 0;
    virtual const unsigned char* pixelData() const = 0;
    virtual PSize size() const { return PSize{width(), height()}; }
    virtual PByteArray data() const { return PByteArray(); }
    // No device offers fragments of itself.
    virtual std::unique_ptr<PAbstractPaintDevice> fragment(int x, int y, unsigned width,
                                                           unsigned height);
    virtual unsigned pitch() const = 0;

protected:
    // The part of the rectangle on a device of deviceWidth x deviceHeight, in x, y, width and
    // height; false when none of it is.
    static bool clip(int& x, int& y, unsigned& width, unsigned& height, unsigned deviceWidth,
                     unsigned deviceHeight);
    // Fills a rectangle that lies inside rows of pitch bytes: the first row pixel by pixel, the
    // others as copies of it.
    static void fillRows(unsigned char* data, unsigned pitch, unsigned bytesPerPixel, unsigned x,
                         unsigned y, unsigned width, unsigned height, unsigned int value);
    // Copies a rectangle within rows of pitch bytes of a device of deviceWidth x deviceHeight;
    // false, with nothing copied, where either place lies partly off it.
    static bool copyRows(unsigned char* data, unsigned pitch, unsigned bytesPerPixel,
                         unsigned deviceWidth, unsigned deviceHeight, int x, int y, unsigned width,
                         unsigned height, int toX, int toY);
    // The first bytesPerPixel bytes of a value, low byte first, and back.
    static void storePixel(unsigned char* target, unsigned bytesPerPixel, unsigned int value);
    static unsigned int loadPixel(const unsigned char* source, unsigned bytesPerPixel);
};
