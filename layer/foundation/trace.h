#pragma once

// One line to the system log, tag "BarcodeLib", at the info priority.
void trace(const char* format, ...) __attribute__((format(printf, 1, 2)));

namespace BarcodeVelko {
// Logging needs no set-up; kept for callers that ask for it.
void SetupLogging();
}  // namespace BarcodeVelko
