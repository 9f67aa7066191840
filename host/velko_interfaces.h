#pragma once

// Everything a host needs to load and drive the extension. Self-contained on purpose: the host
// side compiles against this header alone.

#include <cstddef>
#include <cstdint>

#define VELKO_EXPORT __attribute__((visibility("default")))

enum VelkoVariantType : unsigned short {
    VariantEmpty = 0,
    VariantI4 = 3,
    VariantR8 = 5,
    VariantBool = 11,
    VariantWStr = 22,
    VariantBlob = 23,
};

// A zero-terminated host string; the length counts 16-bit units without the terminator.
struct VelkoVariantString {
    unsigned short* chars;
    uint32_t length;
};

struct VelkoVariantBlob {
    char* bytes;
    uint32_t length;
};

// The host's tagged value. The layout is shared with a closed binary: the asserts below pin it.
struct VelkoVariant {
    union {
        int32_t intValue;
        bool boolValue;
        double doubleValue;
        VelkoVariantString str;
        VelkoVariantBlob blob;
    };
    unsigned char
        reserved[52 - (sizeof(VelkoVariantString) > sizeof(double) ? sizeof(VelkoVariantString)
                                                                   : sizeof(double))];
    // A VelkoVariantType, or another tag of the host's that this side doesn't write.
    unsigned short type;
};

static_assert(offsetof(VelkoVariant, str) == 0, "payload at the start");
static_assert(offsetof(VelkoVariantString, length) == sizeof(void*),
              "length right behind the pointer");
static_assert(offsetof(VelkoVariantBlob, length) == sizeof(void*),
              "length right behind the pointer");
static_assert(offsetof(VelkoVariant, type) == 52, "tag at offset 52");
static_assert(sizeof(VelkoVariant) == 56, "56 bytes in all");

class IVelkoMemory {
public:
    virtual ~IVelkoMemory() = default;
    // The buffer stored at *where belongs to the host from then on.
    virtual bool allocate(void** where, unsigned long bytes) = 0;
};

class IVelkoHost {
public:
    virtual ~IVelkoHost() = default;
    // The strings are only borrowed for the call.
    virtual bool reportError(unsigned short code, const unsigned short* source,
                             const unsigned short* description, long systemCode) = 0;
};

// The host's platform services on Android, in its table behind those of IVelkoHost.
class IVelkoHostEx : public IVelkoHost {
public:
    // The meaning of an option lies with the host.
    virtual bool configure(long option) = 0;
    // The interface of that number, or null; not owned by the caller.
    virtual void* queryInterface(long id) = 0;
};

// What the extension asks of the host on Android before it starts its Java side.
enum VelkoHostRequest : long {
    VelkoConfigureAndroidServices = 10,
    VelkoInterfaceAndroidHelper = 2,  // an IVelkoAndroidHelper
};

// jni.h declares these classes the same way; the header stays free of JNI.
class _jobject;
class _jclass;

// Two operations and no destructor in the table: the helper stays the host's.
class IVelkoAndroidHelper {
public:
    // A local reference to the current activity.
    virtual _jobject* getActivity() = 0;
    // A local reference to the class found by the host's class loader, or null; the name is
    // dotted, as Java writes it.
    virtual _jclass* findClass(const unsigned short* name) = 0;

protected:
    ~IVelkoAndroidHelper() = default;
};

class IVelkoLifecycle {
public:
    virtual ~IVelkoLifecycle() = default;
    virtual bool Init(void* connection) = 0;
    virtual bool setMemManager(void* memory) = 0;
    virtual long GetInfo() = 0;
    virtual void Done() = 0;
};

class IVelkoScripting {
public:
    virtual ~IVelkoScripting() = default;
    virtual bool RegisterExtensionAs(unsigned short** name) = 0;
    virtual long GetNProps() = 0;
    virtual long FindProp(const unsigned short* name) = 0;
    virtual const unsigned short* GetPropName(long index, long alias) = 0;
    virtual bool GetPropVal(long index, VelkoVariant* value) = 0;
    virtual bool SetPropVal(long index, VelkoVariant* value) = 0;
    virtual bool IsPropReadable(long index) = 0;
    virtual bool IsPropWritable(long index) = 0;
    virtual long GetNMethods() = 0;
    virtual long FindMethod(const unsigned short* name) = 0;
    virtual const unsigned short* GetMethodName(long index, long alias) = 0;
    virtual long GetNParams(long method) = 0;
    virtual bool GetParamDefValue(long method, long parameter, VelkoVariant* value) = 0;
    virtual bool HasRetVal(long method) = 0;
    virtual bool CallAsProc(long method, VelkoVariant* parameters, long count) = 0;
    virtual bool CallAsFunc(long method, VelkoVariant* result, VelkoVariant* parameters,
                            long count) = 0;
};

class IVelkoLocale {
public:
    virtual ~IVelkoLocale() = default;
    virtual void SetLocale(const unsigned short* locale) = 0;
};

class IVelkoExtension : public IVelkoLifecycle, public IVelkoScripting, public IVelkoLocale {};

extern "C" {
VELKO_EXPORT const unsigned short* GetClassNames();
VELKO_EXPORT long GetClassObject(const unsigned short* name, IVelkoExtension** object);
VELKO_EXPORT long DestroyObject(IVelkoExtension** object);
VELKO_EXPORT long SetPlatformCapabilities(long capabilities);
}
