#pragma once

#include <string>

#include "host/velko_interfaces.h"

// A device the extension drives on the platform's side. Every operation answers 0 for success.
class VELKO_EXPORT BarcodeLibPerformerBase {
public:
    virtual ~BarcodeLibPerformerBase() = default;
    virtual long OpenDevice() = 0;
    virtual long CloseDevice() = 0;
    virtual long TestDevice() = 0;
    virtual std::wstring GetLastError(bool clear) = 0;
};
