#pragma once

#include <new>
#include <utility>

#include "BarcodeLib/errors/barcode_exception.h"

namespace BarcodeVelko {

// The core's allocation: a failure reaches the host as OutOfMemory, never as std::bad_alloc.
template <class T, class... Args>
T* newOrThrow(Args&&... args) {
    T* object = new (std::nothrow) T(std::forward<Args>(args)...);
    if (!object) {
        throw BarcodeException::OutOfMemory();
    }
    return object;
}

}  // namespace BarcodeVelko
