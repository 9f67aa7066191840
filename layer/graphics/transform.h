#pragma once

#include "layer/graphics/matrix3x3.h"

// An affine map of a point taken as a row vector (x, y, 1); the third column is unused.
template <class T>
class Transform : public Matrix3x3<T> {
public:
    Transform() = default;
    Transform(T m0, T m1, T m2, T m3, T m4, T m5, T m6, T m7, T m8)
        : Matrix3x3<T>(m0, m1, m2, m3, m4, m5, m6, m7, m8) {}

    // Wide results, so that no point overflows on its way.
    long long mapX(T x, T y) const {
        return wide(x) * this->m[0] + wide(y) * this->m[3] + this->m[6];
    }
    long long mapY(T x, T y) const {
        return wide(x) * this->m[1] + wide(y) * this->m[4] + this->m[7];
    }

    // The same for a point whose coordinates are already wide.
    long long wideMapX(long long x, long long y) const {
        return x * this->m[0] + y * this->m[3] + this->m[6];
    }
    long long wideMapY(long long x, long long y) const {
        return x * this->m[1] + y * this->m[4] + this->m[7];
    }

private:
    static long long wide(T value) { return static_cast<long long>(value); }
};
