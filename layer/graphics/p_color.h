#pragma once

#include <memory>

// A 32-bit pixel value. Its bytes, from the first in memory, are blue, green, red and alpha,
// so a value reads 0xAARRGGBB. The value lands in a pixel buffer unchanged.
class PColor {
public:
    // Formats of value(): kRgb clears alpha, kNative is the value as stored, kReversed has
    // the four bytes in the opposite order.
    static constexpr int kRgb = 0;
    static constexpr int kNative = 1;
    static constexpr int kReversed = 2;

    PColor();
    PColor(unsigned char r, unsigned char g, unsigned char b, unsigned char a);
    // The format is accepted for symmetry with value() and has no effect.
    PColor(unsigned int value, int format);
    PColor(const PColor& other);
    PColor(PColor&& other) noexcept;
    PColor& operator=(const PColor& other);
    PColor& operator=(PColor&& other) noexcept;
    ~PColor();

    unsigned char r() const { return byte(2); }
    unsigned char g() const { return byte(1); }
    unsigned char b() const { return byte(0); }
    unsigned char a() const { return byte(3); }
    void setR(unsigned char value) { setByte(2, value); }
    void setG(unsigned char value) { setByte(1, value); }
    void setB(unsigned char value) { setByte(0, value); }
    void setA(unsigned char value) { setByte(3, value); }

    unsigned int value(int format = kNative) const;
    void setValue(unsigned int value, int format);
    operator unsigned int() const { return value(kNative); }
    bool operator==(const PColor& other) const { return value() == other.value(); }
    bool operator!=(const PColor& other) const { return !(*this == other); }

    PColor inverted() const;
    PColor grayScaled() const;

    static PColor fromGray(unsigned char gray);
    static unsigned int fromGray(unsigned char gray, int format);
    static unsigned int color(unsigned int value, int from, int to);

private:
    unsigned char byte(int index) const { return (raw() >> (8 * index)) & 0xFF; }
    void setByte(int index, unsigned char value);
    // A moved-from colour has no word and reads as 0.
    unsigned int raw() const { return word ? *word : 0; }

    std::unique_ptr<unsigned int> word;
};
