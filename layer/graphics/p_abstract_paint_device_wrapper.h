#pragma once

#include "layer/graphics/p_abstract_paint_device.h"

// Forwards to a device that it doesn't own. Without one it answers 0 and draws nothing.
class PAbstractPaintDeviceWrapper : public PAbstractPaintDevice {
public:
    explicit PAbstractPaintDeviceWrapper(PAbstractPaintDevice* wrapped = nullptr);
    PAbstractPaintDeviceWrapper(const PAbstractPaintDeviceWrapper&) = delete;
    PAbstractPaintDeviceWrapper& operator=(const PAbstractPaintDeviceWrapper&) = delete;

    unsigned width() const override;
    unsigned height() const override;
    unsigned bytesPerPixel() const override;
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
    unsigned pitch() const override { return 0; }
    // The device that really holds the pixels.
    virtual PAbstractPaintDevice* device() { return this; }

private:
    PAbstractPaintDevice* wrapped;
};
