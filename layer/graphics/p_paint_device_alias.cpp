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

    // A turn by a multiple of 90 degrees maps a rectangle onto one of the target: its corners
    // there, in wide integers. False for any other transform.
    bool mapRect(int x, int y, unsigned width, unsigned height, long long& left, long long& top,
                 long long& right, long long& bottom) const {
        const Transform<int>& t = transform;
        const bool turnedBy90 = t.mapX(1, 0) == t.mapX(0, 0) && t.mapY(0, 1) == t.mapY(0, 0);
        const bool upright = t.mapY(1, 0) == t.mapY(0, 0) && t.mapX(0, 1) == t.mapX(0, 0);
        if (!turnedBy90 && !upright) {
            return false;
        }
        const long long x0 = t.mapX(x, y);
        const long long y0 = t.mapY(x, y);
        const long long x1 = t.wideMapX(0LL + x + width - 1, 0LL + y + height - 1);
        const long long y1 = t.wideMapY(0LL + x + width - 1, 0LL + y + height - 1);
        left = std::min(x0, x1);
        top = std::min(y0, y1);
        right = std::max(x0, x1);
        bottom = std::max(y0, y1);
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
    long long left = 0;
    long long top = 0;
    long long right = 0;
    long long bottom = 0;
    if (!d->mapRect(x, y, width, height, left, top, right, bottom)) {
        PAbstractPaintDevice::fillRect(x, y, width, height, value);
        return;
    }
    // What lies beyond the int range lies beyond every device.
    left = std::max<long long>(left, 0);
    top = std::max<long long>(top, 0);
    right = std::min<long long>(right, INT_MAX);
    bottom = std::min<long long>(bottom, INT_MAX);
    if (left > right || top > bottom) {
        return;
    }
    d->target->fillRect(static_cast<int>(left), static_cast<int>(top),
                        static_cast<unsigned>(right - left + 1),
                        static_cast<unsigned>(bottom - top + 1), value);
}

bool PPaintDeviceAlias::copyRect(int x, int y, unsigned width, unsigned height, int toX, int toY) {
    long long from[4] = {};
    long long to[4] = {};
    if (!d->target || width == 0 || height == 0 ||
        !d->mapRect(x, y, width, height, from[0], from[1], from[2], from[3]) ||
        !d->mapRect(toX, toY, width, height, to[0], to[1], to[2], to[3])) {
        return false;
    }
    // What lies beyond the int range lies beyond every device.
    for (long long corner : {from[0], from[1], from[2], from[3], to[0], to[1], to[2], to[3]}) {
        if (corner < 0 || corner > INT_MAX) {
            return false;
        }
    }
    return d->target->copyRect(static_cast<int>(from[0]), static_cast<int>(from[1]),
                               static_cast<unsigned>(from[2] - from[0] + 1),
                               static_cast<unsigned>(from[3] - from[1] + 1),
                               static_cast<int>(to[0]), static_cast<int>(to[1]));
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

void PPaintDeviceAlias::putRect(int x, int y, const unsigned char* pixels, unsigned pitch,
                                unsigned width, unsigned height) {
    PAbstractPaintDevice::putRect(x, y, pixels, pitch, width, height);
}
