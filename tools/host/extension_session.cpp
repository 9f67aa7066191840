#include "tools/host/extension_session.h"

#include <cstring>
#include <utility>

#include "tools/host/extension_library.h"
#include "tools/host/host_strings.h"

namespace VelkoHost {

namespace {

std::vector<unsigned short> hostText(const std::string& utf8) {
    const std::u16string units = toUtf16(utf8);
    std::vector<unsigned short> text(units.begin(), units.end());
    text.push_back(0);
    return text;
}

VelkoVariant emptyVariant() {
    VelkoVariant variant;
    std::memset(static_cast<void*>(&variant), 0, sizeof variant);
    variant.type = VariantEmpty;
    return variant;
}

}  // namespace

ExtensionSession::ExtensionSession(const ExtensionLibrary& library, bool withMemory,
                                   bool initialise)
    : library(library) {
    if (!library.loaded()) {
        return;
    }
    const std::vector<unsigned short> name = hostText("CBarcode");
    library.getClassObject(name.data(), &extension);
    if (!extension) {
        return;
    }
    if (initialise) {
        init();
    }
    if (withMemory) {
        extension->setMemManager(&allocator);
    }
    unsigned short* alias = nullptr;
    if (extension->RegisterExtensionAs(&alias) && alias) {
        registered = toUtf8(fromHostString(alias));
        bufferFault |= !allocator.intact(alias) || !allocator.release(alias);
    }
}

ExtensionSession::~ExtensionSession() {
    if (extension) {
        extension->Done();
        library.destroyObject(&extension);
    }
}

bool ExtensionSession::init() {
    return extension && extension->Init(&connection);
}

void ExtensionSession::done() {
    if (extension) {
        extension->Done();
    }
}

long ExtensionSession::propIndex(const std::string& name) {
    const std::vector<unsigned short> text = hostText(name);
    return extension ? extension->FindProp(text.data()) : -1;
}

VelkoVariant ExtensionSession::toVariant(const Value& value,
                                         std::vector<unsigned short>& text) const {
    VelkoVariant variant = emptyVariant();
    if (const int* number = std::get_if<int>(&value)) {
        variant.intValue = *number;
        variant.type = VariantI4;
    } else if (const double* real = std::get_if<double>(&value)) {
        variant.doubleValue = *real;
        variant.type = VariantR8;
    } else if (const bool* flag = std::get_if<bool>(&value)) {
        const unsigned char byte = *flag ? 1 : 0;
        std::memcpy(&variant, &byte, 1);
        variant.type = VariantBool;
    } else if (const std::string* utf8 = std::get_if<std::string>(&value)) {
        text = hostText(*utf8);
        variant.str.chars = text.data();
        variant.str.length = static_cast<uint32_t>(text.size() - 1);
        variant.type = VariantWStr;
    }
    return variant;
}

bool ExtensionSession::set(long index, const Value& value) {
    std::vector<unsigned short> text;
    VelkoVariant variant = toVariant(value, text);
    return extension && extension->SetPropVal(index, &variant);
}

bool ExtensionSession::set(const std::string& name, const Value& value) {
    return set(propIndex(name), value);
}

Value ExtensionSession::get(long index) {
    VelkoVariant variant = emptyVariant();
    Value value;
    if (extension && extension->GetPropVal(index, &variant)) {
        take(variant, value);
    }
    return value;
}

Value ExtensionSession::get(const std::string& name) {
    return get(propIndex(name));
}

bool ExtensionSession::take(const VelkoVariant& variant, Value& value) {
    value = std::monostate();
    switch (variant.type) {
        case VariantI4:
            value = static_cast<int>(variant.intValue);
            return true;
        case VariantR8:
            value = variant.doubleValue;
            return true;
        case VariantBool: {
            unsigned char byte = 0;
            std::memcpy(&byte, &variant, 1);
            value = byte != 0;
            return true;
        }
        case VariantWStr:
        case VariantBlob:
            break;
        default:
            return true;
    }
    const void* buffer = variant.type == VariantWStr ? static_cast<const void*>(variant.str.chars)
                                                     : static_cast<const void*>(variant.blob.bytes);
    const bool healthy = allocator.intact(buffer);
    if (variant.type == VariantWStr) {
        value = toUtf8(fromHostString(variant.str.chars));
    } else {
        const auto* bytes = reinterpret_cast<const unsigned char*>(variant.blob.bytes);
        value = std::vector<unsigned char>(bytes, bytes + variant.blob.length);
    }
    const bool ours = allocator.release(buffer);
    bufferFault |= !healthy || !ours;
    return healthy && ours;
}

bool ExtensionSession::call(long method, std::vector<Value> parameters, Value& result) {
    std::vector<std::vector<unsigned short>> texts(parameters.size());
    std::vector<VelkoVariant> variants;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        variants.push_back(toVariant(parameters[i], texts[i]));
    }
    VelkoVariant answer = emptyVariant();
    const bool done =
        extension &&
        extension->CallAsFunc(method, &answer, variants.empty() ? nullptr : variants.data(),
                              static_cast<long>(variants.size()));
    take(answer, result);
    return done;
}

std::vector<unsigned char> ExtensionSession::getBarcode() {
    Value result;
    call(0, {}, result);
    if (auto* png = std::get_if<std::vector<unsigned char>>(&result)) {
        // The picture is moved out, not copied: result goes no further.
        return std::move(*png);
    }
    return {};
}

}  // namespace VelkoHost
