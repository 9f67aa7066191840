#pragma once

#include <memory>

#include "layer/graphics/p_abstract_paint_device_wrapper.h"
#include "layer/graphics/transform.h"

struct PPaintDeviceAliasPrivate;

// A logical view of another device: every point goes through a transform on its way to the
// target, whose own bounds decide what lands. This is how a canvas looks rotated.
class PPaintDeviceAlias : public PAbstractPaintDeviceWrapper {
public:
    PPaintDeviceAlias();
    // With owned set the alias deletes the target at its end.
    PPaintDeviceAlias(PAbstractPaintDeviceWrapper* target, unsigned int width, unsigned int height,
                      bool owned);
    ~PPaintDeviceAlias() override;

    void setTransfotm(const Transform<int>& transform);
    Transform<int> transform() const;

    unsigned width() const override;
    unsigned height() const override;
    unsigned bytesPerPixel() const override;
    void setPixel(int x, int y, unsigned int value) override;
    unsigned int getPixel(int x, int y) const override;
    void fill(unsigned int value) override;
    // A turn by a multiple of 90 degrees maps a rectangle onto a rectangle of the target.
    void fillRect(int x, int y, unsigned width, unsigned height, unsigned int value) override;
    bool copyRect(int x, int y, unsigned width, unsigned height, int toX, int toY) override;
    // Plotted, each pixel through setPixel.
    void putRect(int x, int y, const unsigned char* pixels, unsigned pitch, unsigned width,
                 unsigned height) override;
    unsigned char* pixelData() override;
    const unsigned char* pixelData() const override;
    unsigned pitch() const override { return 0; }
    PAbstractPaintDevice* device() override;

private:
    std::unique_ptr<PPaintDeviceAliasPrivate> d;
};
