// The least a host does to get one picture: minimal_host LIBRARY OUT.png draws the EAN-13
// 4006381333931 at 300 x 150 pixels. Built against velko_interfaces.h alone (pkg-config
// --cflags velko-barcode, or find_package(VelkoBarcode) and VelkoBarcode::interfaces).

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <velko_interfaces.h>

namespace {

// The host's allocator: every buffer the extension answers with comes from here and is the
// host's to free.
class Memory : public IVelkoMemory {
public:
    bool allocate(void** where, unsigned long bytes) override {
        *where = std::malloc(bytes);
        return *where != nullptr;
    }
};

class Host : public IVelkoHost {
public:
    bool reportError(unsigned short code, const unsigned short*, const unsigned short*,
                     long systemCode) override {
        std::fprintf(stderr, "error %u, system code 0x%lX\n", code, systemCode);
        return true;
    }
};

// Host strings are zero-terminated 16-bit units; ASCII is enough here.
struct HostString {
    explicit HostString(const char* text) {
        for (std::size_t i = 0; i <= std::strlen(text); ++i) {
            units[i] = static_cast<unsigned char>(text[i]);
        }
    }
    unsigned short units[64] = {};
};

bool setInteger(IVelkoExtension* object, const char* name, int number) {
    VelkoVariant value{};
    value.intValue = number;
    value.type = VariantI4;
    return object->SetPropVal(object->FindProp(HostString(name).units), &value);
}

bool setText(IVelkoExtension* object, const char* name, const char* text) {
    HostString chars(text);
    VelkoVariant value{};
    value.str.chars = chars.units;
    value.str.length = static_cast<uint32_t>(std::strlen(text));
    value.type = VariantWStr;
    return object->SetPropVal(object->FindProp(HostString(name).units), &value);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: minimal_host LIBRARY OUT.png\n");
        return 2;
    }
    void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    auto getClassObject =
        library ? reinterpret_cast<decltype(&GetClassObject)>(dlsym(library, "GetClassObject"))
                : nullptr;
    auto destroyObject =
        library ? reinterpret_cast<decltype(&DestroyObject)>(dlsym(library, "DestroyObject"))
                : nullptr;
    if (!getClassObject || !destroyObject) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 2;
    }
    IVelkoExtension* object = nullptr;
    getClassObject(HostString("CBarcode").units, &object);
    Host host;
    Memory memory;
    // Both take a void*: pass exactly these interfaces, as they are cast back to them.
    const bool ready = object && object->Init(static_cast<IVelkoHost*>(&host)) &&
                       object->setMemManager(static_cast<IVelkoMemory*>(&memory));
    VelkoVariant picture{};
    VelkoVariant result{};
    // GetBarcode answers true for a picture of an error message too: Result tells them apart.
    const bool drawn = ready && setInteger(object, "Width", 300) &&
                       setInteger(object, "Height", 150) &&
                       setText(object, "CodeValue", "4006381333931") &&
                       object->CallAsFunc(object->FindMethod(HostString("GetBarcode").units),
                                          &picture, nullptr, 0) &&
                       picture.type == VariantBlob &&
                       object->GetPropVal(object->FindProp(HostString("Result").units), &result) &&
                       result.intValue == 0;
    FILE* out = drawn ? std::fopen(argv[2], "wb") : nullptr;
    bool written =
        out && std::fwrite(picture.blob.bytes, 1, picture.blob.length, out) == picture.blob.length;
    written = out && std::fclose(out) == 0 && written;
    if (picture.type == VariantBlob) {
        std::free(picture.blob.bytes);  // the host's buffer, from Memory::allocate
    }
    if (object) {
        object->Done();
        destroyObject(&object);
    }
    return written ? 0 : 1;
}
