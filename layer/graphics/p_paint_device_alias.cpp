#include "layer/graphics/p_paint_device_alias.h"

#include <algorithm>
#include <climits>

struct PPaintDeviceAliasPrivate {
    PAbstractPaintDeviceWrapper* target = nullptr;
    unsigned width = 0;
    unsigned height = 0;
    Transform<int> transform;
    bool owned = false;

    ~PPaintDeviceAliasPrivate() {
        if (owned) {
            delete target;
        }
    }

    // False when the mapped point can't be a pixel of any device.
    bool map(int x, int y, int& tx, int& ty) const {
        const long long mx = transform.mapX(x, y);
        const long long my = transform.mapY(x, y);
        if (mx < INT_MIN || mx > INT_MAX || my < INT_MIN || my > INT_MAX) {
            return false;
        }
        tx = static_cast<int>(mx);
        ty = static_cast<int>(my);
        return true;
    }
};

PPaintDeviceAlias::PPaintDeviceAlias() : d(std::make_unique<PPaintDeviceAliasPrivate>()) {}

PPaintDeviceAlias::PPaintDeviceAlias(PAbstractPaintDeviceWrapper* target, unsigned int width,
                                     unsigned int height, bool owned)
    : PPaintDeviceAlias() {
    d->target = target;
    d->width = width;
    d->height = height;
    d->owned = owned;
}

PPaintDeviceAlias::~PPaintDeviceAlias() = default;

void PPaintDeviceAlias::setTransfotm(const Transform<int>& transform) {
    d->transform = transform;
}

Transform<int> PPaintDeviceAlias::transform() const {
    return d->transform;
}

unsigned PPaintDeviceAlias::width() const {
    return d->width;
}

unsigned PPaintDeviceAlias::height() const {
    return d->height;
}

unsigned PPaintDeviceAlias::bytesPerPixel() const {
    return d->target ? d->target->bytesPerPixel() : 0;
}

void PPaintDeviceAlias::setPixel(int x, int y, unsigned int value) {
    int tx = 0;
    int ty = 0;
    if (d->target && d->map(x, y, tx, ty)) {
        d->target->setPixel(tx, ty, value);
    }
}

unsigned int PPaintDeviceAlias::getPixel(int x, int y) const {
    int tx = 0;
    int ty = 0;
    if (d->target && d->map(x, y, tx, ty)) {
        return d->target->getPixel(tx, ty);
    }
    return 0;
}

void PPaintDeviceAlias::fill(unsigned int value) {
    if (d->target) {
        d->target->fill(value);
    }
}

void PPaintDeviceAlias::fillRect(int x, int y, unsigned width, unsigned height,
                                 unsigned int value) {
    if (!d->target || width == 0 || height == 0) {
        return;
    }
    const Transform<int>& t = d->transform;
    const bool turnedBy90 = t.mapX(1, 0) == t.mapX(0, 0) && t.mapY(0, 1) == t.mapY(0, 0);
    const bool upright = t.mapY(1, 0) == t.mapY(0, 0) && t.mapX(0, 1) == t.mapX(0, 0);
    if (!turnedBy90 && !upright) {
        PAbstractPaintDevice::fillRect(x, y, width, height, value);
        return;
    }
    const long long right = 0LL + x + width - 1;
    const long long bottom = 0LL + y + height - 1;
    const long long x0 = t.mapX(x, y);
    const long long y0 = t.mapY(x, y);
    const long long x1 = t.wideMapX(right, bottom);
    const long long y1 = t.wideMapY(right, bottom);
    // What lies beyond the int range lies beyond every device.
    const long long left = std::max<long long>(std::min(x0, x1), 0);
    const long long top = std::max<long long>(std::min(y0, y1), 0);
    const long long farRight = std::min<long long>(std::max(x0, x1), INT_MAX);
    const long long farBottom = std::min<long long>(std::max(y0, y1), INT_MAX);
    if (left > farRight || top > farBottom) {
        return;
    }
    d->target->fillRect(static_cast<int>(left), static_cast<int>(top),
                        static_cast<unsigned>(farRight - left + 1),
                        static_cast<unsigned>(farBottom - top + 1), value);
}

unsigned char* PPaintDeviceAlias::pixelData() {
    return d->target ? d->target->pixelData() : nullptr;
}

const unsigned char* PPaintDeviceAlias::pixelData() const {
    return d->target ? static_cast<const PAbstractPaintDeviceWrapper*>(d->target)->pixelData()
                     : nullptr;
}

PAbstractPaintDevice* PPaintDeviceAlias::device() {
    return d->target ? d->target->device() : this;
}
