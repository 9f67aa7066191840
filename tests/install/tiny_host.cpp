// The smallest host: dlopen the installed extension, draw an EAN-13, write the PNG to standard
// output. VELKO_EXTENSION_FILE comes from pkg-config or from find_package.
#include <dlfcn.h>
#include <velko_interfaces.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

struct Memory : IVelkoMemory {
    bool allocate(void** where, unsigned long bytes) override {
        return (*where = std::malloc(bytes)) != nullptr;
    }
};

struct Host : IVelkoHost {
    bool reportError(unsigned short, const unsigned short*, const unsigned short*, long) override {
        return true;
    }
};

std::vector<unsigned short> text(const char* ascii) {
    return std::vector<unsigned short>(ascii, ascii + std::strlen(ascii) + 1);
}

int main() {
    void* library = dlopen(VELKO_EXTENSION_FILE, RTLD_NOW);
    const auto make =
        library ? reinterpret_cast<decltype(&GetClassObject)>(dlsym(library, "GetClassObject"))
                : nullptr;
    IVelkoExtension* barcode = nullptr;
    if (!make || !make(text("CBarcode").data(), &barcode)) {
        return 1;
    }
    Host host;
    Memory memory;
    barcode->Init(&host);
    barcode->setMemManager(&memory);
    VelkoVariant width{};
    width.intValue = 300;
    width.type = VariantI4;
    barcode->SetPropVal(barcode->FindProp(text("Width").data()), &width);
    std::vector<unsigned short> digits = text("4006381333931");
    VelkoVariant value{};
    value.str = {digits.data(), static_cast<uint32_t>(digits.size() - 1)};
    value.type = VariantWStr;
    barcode->SetPropVal(barcode->FindProp(text("CodeValue").data()), &value);
    VelkoVariant picture{};
    if (!barcode->CallAsFunc(0, &picture, nullptr, 0) || picture.type != VariantBlob) {
        return 1;
    }
    std::fwrite(picture.blob.bytes, 1, picture.blob.length, stdout);
    std::free(picture.blob.bytes);
    barcode->Done();
    reinterpret_cast<decltype(&DestroyObject)>(dlsym(library, "DestroyObject"))(&barcode);
    return 0;
}
