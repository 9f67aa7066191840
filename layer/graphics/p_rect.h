#pragma once

#include <algorithm>

// A rectangle at a signed position with a size of type S. Edges that only touch don't
// intersect.
template <class P, class S>
class PRect {
public:
    PRect() = default;
    PRect(P x, P y, S width, S height) : x(x), y(y), width(width), height(height) {}

    // Empty (all zero) when the two don't overlap.
    PRect intersection(const PRect& other) const {
        // Wide signed arithmetic: an unsigned size must not turn a comparison unsigned.
        using Wide = long long;
        const Wide left = std::max<Wide>(x, other.x);
        const Wide top = std::max<Wide>(y, other.y);
        const Wide right = std::min<Wide>(Wide(x) + Wide(width), Wide(other.x) + Wide(other.width));
        const Wide bottom =
            std::min<Wide>(Wide(y) + Wide(height), Wide(other.y) + Wide(other.height));
        if (right <= left || bottom <= top) {
            return PRect();
        }
        return PRect(P(left), P(top), S(right - left), S(bottom - top));
    }

    P x = 0;
    P y = 0;
    S width = 0;
    S height = 0;
};
