#pragma once

#include <memory>

#include "layer/graphics/p_abstract_paint_device_wrapper.h"

struct PPaintDevicePrivate;

// Pixels in a raw buffer: its own, or one that somebody else owns and keeps alive.
class PPaintDevice : public PAbstractPaintDeviceWrapper {
public:
    PPaintDevice();
    // An owned buffer of height rows of width pixels, not initialised.
    PPaintDevice(unsigned int width, unsigned int height, unsigned int bytesPerPixel);
    // A view on a buffer of at least height * pitch bytes.
    PPaintDevice(unsigned char* data, unsigned int width, unsigned int height,
                 unsigned int bytesPerPixel, unsigned int pitch);
    ~PPaintDevice() override;

    unsigned width() const override;
    unsigned height() const override;
    unsigned bytesPerPixel() const override;
    void setPixel(int x, int y, unsigned int value) override;
    unsigned int getPixel(int x, int y) const override;
    // Writes the value as 4-byte pixels, width * height times from the start.
    void fill(unsigned int value) override;
    void fillRect(int x, int y, unsigned width, unsigned height, unsigned int value) override;
    bool copyRect(int x, int y, unsigned width, unsigned height, int toX, int toY) override;
    // Plotted, each pixel through setPixel.
    void putRect(int x, int y, const unsigned char* pixels, unsigned pitch, unsigned width,
                 unsigned height) override;
    unsigned char* pixelData() override;
    const unsigned char* pixelData() const override;
    unsigned pitch() const override;
    PAbstractPaintDevice* device() override { return this; }

private:
    unsigned char* pixelAt(int x, int y) const;

    std::unique_ptr<PPaintDevicePrivate> d;
};
