#include "layer/graphics/p_color.h"

PColor::PColor() : word(std::make_unique<unsigned int>(0)) {}

PColor::PColor(unsigned char r, unsigned char g, unsigned char b, unsigned char a)
    : word(std::make_unique<unsigned int>(static_cast<unsigned int>(a) << 24 |
                                          static_cast<unsigned int>(r) << 16 |
                                          static_cast<unsigned int>(g) << 8 | b)) {}

PColor::PColor(unsigned int value, int /*format*/) : word(std::make_unique<unsigned int>(value)) {}

PColor::PColor(const PColor& other) : word(std::make_unique<unsigned int>(other.raw())) {}

PColor::PColor(PColor&& other) noexcept = default;

PColor& PColor::operator=(const PColor& other) {
    if (this != &other) {
        setValue(other.raw(), kNative);
    }
    return *this;
}

PColor& PColor::operator=(PColor&& other) noexcept = default;

PColor::~PColor() = default;

unsigned int PColor::value(int format) const {
    const unsigned int v = raw();
    switch (format) {
        case kRgb:
            return v & 0x00FFFFFF;
        case kReversed:
            return (v & 0xFF) << 24 | (v & 0xFF00) << 8 | (v >> 8 & 0xFF00) | v >> 24;
        default:
            return v;
    }
}

void PColor::setValue(unsigned int value, int /*format*/) {
    if (word) {
        *word = value;
    } else {
        word = std::make_unique<unsigned int>(value);
    }
}

void PColor::setByte(int index, unsigned char value) {
    const unsigned int shift = 8 * index;
    setValue((raw() & ~(0xFFu << shift)) | static_cast<unsigned int>(value) << shift, kNative);
}

PColor PColor::inverted() const {
    return PColor(static_cast<unsigned char>(~r()), static_cast<unsigned char>(~g()),
                  static_cast<unsigned char>(~b()), a());
}

PColor PColor::grayScaled() const {
    const auto v = static_cast<unsigned char>((r() + g() + b()) / 3);
    return PColor(v, v, v, a());
}

PColor PColor::fromGray(unsigned char gray) {
    return PColor(gray, gray, gray, 255);
}

unsigned int PColor::fromGray(unsigned char gray, int format) {
    return fromGray(gray).value(format);
}

unsigned int PColor::color(unsigned int value, int from, int to) {
    return PColor(value, from).value(to);
}
