#pragma once

#include <memory>
#include <string>

#include "host/barcode_lib_performer.h"
#include "host/velko_interfaces.h"

struct BarcodeLibPerformerAndroidPrivate;

// Starts the extension's Java helper, com.evelko.BarcodeLibNativePackage.LibLoader, through the
// host's Android services. Whatever is missing on the way (host, helper, class, environment)
// leaves an object that works without a Java side. Exported with the library's entry points,
// for a caller that wants the Java side started.
class VELKO_EXPORT BarcodeLibPerformerAndroid : public BarcodeLibPerformerBase {
public:
    // The host isn't owned; a null host makes a performer that never touches the VM.
    explicit BarcodeLibPerformerAndroid(IVelkoHostEx* host);
    ~BarcodeLibPerformerAndroid() override;
    BarcodeLibPerformerAndroid(const BarcodeLibPerformerAndroid&) = delete;
    BarcodeLibPerformerAndroid& operator=(const BarcodeLibPerformerAndroid&) = delete;

    long OpenDevice() override;
    long CloseDevice() override;
    long TestDevice() override;
    std::wstring GetLastError(bool clear) override;

private:
    std::shared_ptr<BarcodeLibPerformerAndroidPrivate> d;
};

// The first performer made with a host in the process, for the Java side to find; later ones
// don't change it. Null before that one and again once it is gone, rather than dangling: the
// slot is never taken a second time.
extern VELKO_EXPORT BarcodeLibPerformerAndroid* g_androidAppPerformer;
