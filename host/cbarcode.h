#pragma once

#include <memory>
#include <string>

#include "host/cbarcode_properties.h"
#include "host/velko_interfaces.h"

namespace BarcodeVelko {
class BarcodeFacade2;
}

// The extension object the host drives. It keeps no barcode state of its own: properties go
// to the facade, pictures come back as PNG bytes in host memory, and exceptions of the core
// become host errors.
class CBarcode : public IVelkoExtension {
public:
    CBarcode();
    ~CBarcode() override;
    CBarcode(const CBarcode&) = delete;
    CBarcode& operator=(const CBarcode&) = delete;

    bool Init(void* connection) override;
    bool setMemManager(void* memory) override;
    long GetInfo() override;
    void Done() override;

    bool RegisterExtensionAs(unsigned short** name) override;
    long GetNProps() override;
    long FindProp(const unsigned short* name) override;
    const unsigned short* GetPropName(long index, long alias) override;
    bool GetPropVal(long index, VelkoVariant* value) override;
    bool SetPropVal(long index, VelkoVariant* value) override;
    bool IsPropReadable(long index) override;
    bool IsPropWritable(long index) override;
    long GetNMethods() override;
    long FindMethod(const unsigned short* name) override;
    const unsigned short* GetMethodName(long index, long alias) override;
    long GetNParams(long method) override;
    bool GetParamDefValue(long method, long parameter, VelkoVariant* value) override;
    bool HasRetVal(long method) override;
    bool CallAsProc(long method, VelkoVariant* parameters, long count) override;
    bool CallAsFunc(long method, VelkoVariant* returned, VelkoVariant* parameters,
                    long count) override;

    void SetLocale(const unsigned short* locale) override;

private:
    void addError(unsigned int code, const wchar_t* source, const wchar_t* description,
                  long systemCode);
    static bool CastVariantToI4(const VelkoVariant& value, int& result);
    // Runs call; an exception of the core becomes a host error and the answer false.
    template <class Call>
    bool reportingErrors(Call call);

    // The host's value as the property's kind reads it; false for a tag the kind refuses or
    // a refused negative number.
    static bool readVariant(const PropertyDescriptor& property, const VelkoVariant& value,
                            PropertyValue& written);
    bool putString(VelkoVariant* value, const std::wstring& text);
    bool getBarcode(VelkoVariant* result);
    bool fontAt(VelkoVariant* result, const VelkoVariant& parameter);
    bool findFont(VelkoVariant* result, const VelkoVariant& parameter);

    IVelkoHost* connection = nullptr;
    IVelkoMemory* memory = nullptr;
    std::unique_ptr<BarcodeVelko::BarcodeFacade2> facade;
    std::string locale;
    int result = 0;
};
