#pragma once

#include <exception>
#include <new>

#include "BarcodeLib/errors/barcode_exception.h"

namespace BarcodeVelko {

// Runs call so that only the core's own exceptions leave it: std::bad_alloc becomes OutOfMemory
// and any other std::exception Unexpected.
template <class Call>
auto guarded(Call call) -> decltype(call()) {
    try {
        return call();
    } catch (const std::bad_alloc&) {
        throw BarcodeException::OutOfMemory();
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

}  // namespace BarcodeVelko
