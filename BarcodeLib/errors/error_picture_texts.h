#pragma once

namespace BarcodeVelko {

// The texts that an error picture shows; a tool names the same reason to its user.
constexpr const char kInvalidBarcodeText[] = "invalid barcode";
constexpr const char kSizeTooSmallText[] = "size too small";
constexpr const char kGenerationErrorText[] = "Generation error. Possibly incorrect parameters.";

}  // namespace BarcodeVelko
