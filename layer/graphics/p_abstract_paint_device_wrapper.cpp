#include "layer/graphics/p_abstract_paint_device_wrapper.h"

PAbstractPaintDeviceWrapper::PAbstractPaintDeviceWrapper(PAbstractPaintDevice* wrapped)
    : wrapped(wrapped) {}

unsigned PAbstractPaintDeviceWrapper::width() const {
    return wrapped ? wrapped->width() : 0;
}

unsigned PAbstractPaintDeviceWrapper::height() const {
    return wrapped ? wrapped->height() : 0;
}

unsigned PAbstractPaintDeviceWrapper::bytesPerPixel() const {
    return wrapped ? wrapped->bytesPerPixel() : 0;
}

void PAbstractPaintDeviceWrapper::setPixel(int x, int y, unsigned int value) {
    if (wrapped) {
        wrapped->setPixel(x, y, value);
    }
}

unsigned int PAbstractPaintDeviceWrapper::getPixel(int x, int y) const {
    return wrapped ? wrapped->getPixel(x, y) : 0;
}

void PAbstractPaintDeviceWrapper::fill(unsigned int value) {
    if (wrapped) {
        wrapped->fill(value);
    }
}

void PAbstractPaintDeviceWrapper::fillRect(int x, int y, unsigned width, unsigned height,
                                           unsigned int value) {
    if (wrapped) {
        wrapped->fillRect(x, y, width, height, value);
    }
}

bool PAbstractPaintDeviceWrapper::copyRect(int x, int y, unsigned width, unsigned height, int toX,
                                           int toY) {
    return wrapped && wrapped->copyRect(x, y, width, height, toX, toY);
}

void PAbstractPaintDeviceWrapper::putRect(int x, int y, const unsigned char* pixels, unsigned pitch,
                                          unsigned width, unsigned height) {
    if (wrapped) {
        wrapped->putRect(x, y, pixels, pitch, width, height);
    }
}

unsigned char* PAbstractPaintDeviceWrapper::pixelData() {
    return wrapped ? wrapped->pixelData() : nullptr;
}

const unsigned char* PAbstractPaintDeviceWrapper::pixelData() const {
    return wrapped ? static_cast<const PAbstractPaintDevice*>(wrapped)->pixelData() : nullptr;
}

PByteArray PAbstractPaintDeviceWrapper::data() const {
    return wrapped ? wrapped->data() : PByteArray();
}
