#pragma once

template <class T>
class PPoint2d {
public:
    PPoint2d() = default;
    PPoint2d(T x, T y) : x(x), y(y) {}
    virtual ~PPoint2d() = default;

    T x = 0;
    T y = 0;
};
