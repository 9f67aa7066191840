#pragma once

#include <string>
#include <vector>

#include "host/velko_interfaces.h"

namespace VelkoHost {

struct ReportedError {
    unsigned short code = 0;
    std::u16string source;
    std::u16string description;
    long systemCode = 0;
};

// The host's connection: it keeps every error the extension reports.
class RecordingHost : public IVelkoHost {
public:
    bool reportError(unsigned short code, const unsigned short* source,
                     const unsigned short* description, long systemCode) override;

    std::vector<ReportedError> errors;
};

}  // namespace VelkoHost
