#pragma once

namespace BarcodeVelko {

// A canvas turns by a right angle, in degrees clockwise. Turned by 90 or 270 degrees, a picture
// trades its width for its height.
constexpr bool isRightAngle(unsigned degrees) {
    return degrees == 0 || degrees == 90 || degrees == 180 || degrees == 270;
}

constexpr bool isTurned(unsigned degrees) {
    return degrees == 90 || degrees == 270;
}

}  // namespace BarcodeVelko
