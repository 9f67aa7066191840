#pragma once

#include <vector>

// Nine values m0 to m8, row by row; identity unless set.
template <class T>
class Matrix3x3 {
public:
    Matrix3x3() : m{1, 0, 0, 0, 1, 0, 0, 0, 1} {}
    virtual ~Matrix3x3() = default;

protected:
    Matrix3x3(T m0, T m1, T m2, T m3, T m4, T m5, T m6, T m7, T m8)
        : m{m0, m1, m2, m3, m4, m5, m6, m7, m8} {}

    std::vector<T> m;
};
