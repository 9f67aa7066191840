#include "host/cbarcode.h"

#include <cmath>
#include <cstring>
#include <cwchar>
#include <exception>
#include <limits>
#include <vector>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/errors/process_locale.h"
#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/png/dm2png32.h"
#include "host/cbarcode_properties.h"
#include "host/text_bounds.h"
#include "host/text_forms.h"
#include "host/wchar_wrapper.h"
#include "layer/fonts/p_font_glyphs_cache.h"

using BarcodeVelko::BarcodeFacade2;

namespace {

enum Method : long { kGetBarcode = 0, kFontAt, kFindFont };

constexpr unsigned short kHostErrorCode = 1003;
const wchar_t kErrorSource[] = L"VelkoBarCode";
const wchar_t kClassAlias[] = L"Barcode";

bool inRange(long index, long count) {
    return index >= 0 && index < count;
}

// A fresh copy of a name in host memory; null for an index or alias out of range.
const unsigned short* nameCopy(const wchar_t* name, IVelkoMemory* memory) {
    return name ? AllocAndConvert(memory, name, nullptr) : nullptr;
}

// The host writes a Boolean as one byte; reading it as bool would trust that byte to be 0 or 1.
bool variantFlag(const VelkoVariant& value) {
    unsigned char byte = 0;
    std::memcpy(&byte, &value, 1);
    return byte != 0;
}

void putInteger(VelkoVariant* value, int number) {
    value->intValue = number;
    value->type = VariantI4;
}

void putFlag(VelkoVariant* value, bool flag) {
    const unsigned char byte = flag ? 1 : 0;
    std::memcpy(value, &byte, 1);
    value->type = VariantBool;
}

// A picture is made in the "C" locale. Afterwards the host's locale comes back whichever way
// the picture ends: the one given to SetLocale, or else the one in force before. The locale is
// one for the process: it is changed and read only through BarcodeLib/process_locale.h.
class LocaleScope {
public:
    explicit LocaleScope(const std::string& hostLocale) {
        const std::string current = exchange_process_locale("C");
        restore = !hostLocale.empty() ? hostLocale : !current.empty() ? current : "C";
    }
    ~LocaleScope() { set_process_locale(restore); }

private:
    std::string restore;
};

// The host's text up to its terminator, unless it is longer than longest: then false, and it
// is neither walked nor copied further.
bool boundedText(const unsigned short* chars, std::size_t longest, std::wstring& text) {
    const std::size_t length = boundedLenShortWcharStr(chars, longest);
    if (length > longest) {
        return false;
    }
    text = chars ? std::wstring(chars, chars + length) : std::wstring();
    return true;
}

}  // namespace

CBarcode::CBarcode() = default;

CBarcode::~CBarcode() {
    Done();
}

bool CBarcode::Init(void* newConnection) {
    connection = static_cast<IVelkoHost*>(newConnection);
    const bool made = reportingErrors([this] {
        facade = std::make_unique<BarcodeFacade2>();
        return true;
    });
    return made && connection != nullptr && facade != nullptr;
}

template <class Call>
bool CBarcode::reportingErrors(Call call) {
    try {
        return call();
    } catch (const BarcodeException::AbstractBarcodeException& e) {
        addError(kHostErrorCode, kErrorSource, e.getDescription().c_str(), e.getCode());
    } catch (const std::exception&) {
        // Nothing but the core's own exceptions may cross into the host's process.
        const BarcodeException::Unexpected e;
        addError(kHostErrorCode, kErrorSource, e.getDescription().c_str(), e.getCode());
    }
    return false;
}

bool CBarcode::setMemManager(void* newMemory) {
    memory = static_cast<IVelkoMemory*>(newMemory);
    return memory != nullptr;
}

long CBarcode::GetInfo() {
    return 2004;
}

void CBarcode::Done() {
    PFontGlyphsCache::deinitialize();
    facade.reset();
}

bool CBarcode::RegisterExtensionAs(unsigned short** name) {
    if (!memory || !name) {
        return false;
    }
    const unsigned int units = static_cast<unsigned int>(std::wcslen(kClassAlias)) + 1;
    void* buffer = nullptr;
    if (memory->allocate(&buffer, units * sizeof(unsigned short)) && buffer) {
        *name = static_cast<unsigned short*>(buffer);
        convToShortWchar(name, kClassAlias, units);
    }
    return true;
}

long CBarcode::GetNProps() {
    return kPropCount;
}

long CBarcode::FindProp(const unsigned short* name) {
    std::wstring text;
    return boundedText(name, kLongestName, text) ? findPropertyName(text) : -1;
}

const unsigned short* CBarcode::GetPropName(long index, long alias) {
    const bool known = inRange(index, kPropCount) && inRange(alias, 2);
    return nameCopy(known ? g_properties[index].names[alias] : nullptr, memory);
}

// Both answer true outside the table, as the platform expects.
bool CBarcode::IsPropReadable(long index) {
    return !inRange(index, kPropCount) || g_properties[index].readable;
}

bool CBarcode::IsPropWritable(long index) {
    return !inRange(index, kPropCount) || g_properties[index].writable;
}

long CBarcode::GetNMethods() {
    return kMethodCount;
}

long CBarcode::FindMethod(const unsigned short* name) {
    std::wstring text;
    return boundedText(name, kLongestName, text) ? findMethodName(text) : -1;
}

const unsigned short* CBarcode::GetMethodName(long index, long alias) {
    const bool known = inRange(index, kMethodCount) && inRange(alias, 2);
    return nameCopy(known ? g_aszMethodNames[index][alias] : nullptr, memory);
}

long CBarcode::GetNParams(long method) {
    return method == kFontAt || method == kFindFont ? 1 : 0;
}

bool CBarcode::GetParamDefValue(long, long, VelkoVariant* value) {
    if (value) {
        value->type = VariantEmpty;
    }
    return false;
}

bool CBarcode::HasRetVal(long method) {
    return inRange(method, kMethodCount);
}

bool CBarcode::CallAsProc(long, VelkoVariant*, long) {
    return false;
}

bool CBarcode::putString(VelkoVariant* value, const std::wstring& text) {
    unsigned int length = 0;
    unsigned short* chars = AllocAndConvert(memory, text.c_str(), &length);
    if (chars) {
        value->str.chars = chars;
        value->str.length = length;
        value->type = VariantWStr;
    }
    return true;
}

bool CBarcode::GetPropVal(long index, VelkoVariant* value) {
    if (!value) {
        return false;
    }
    value->type = VariantEmpty;
    // Before Init, after Done or after a failed Init there is nothing to read.
    if (!facade || !inRange(index, kPropCount) || !g_properties[index].get) {
        return false;
    }
    const PropertyDescriptor& property = g_properties[index];
    const PropertyValue read = property.get(PropertySource{*facade, result});
    switch (property.kind) {
        case PropertyKind::Boolean:
            putFlag(value, std::get<bool>(read));
            return true;
        case PropertyKind::Integer:
        case PropertyKind::Double:
            putInteger(value, std::get<int>(read));
            return true;
        case PropertyKind::String:
        case PropertyKind::Binary:
            return putString(value, std::get<std::wstring>(read));
    }
    return false;
}

bool CBarcode::SetPropVal(long index, VelkoVariant* value) {
    if (!facade || !value || !inRange(index, kPropCount) || !g_properties[index].set) {
        return false;
    }
    const PropertyDescriptor& property = g_properties[index];
    PropertyValue written;
    if (!readVariant(property, *value, written)) {
        return false;
    }
    return reportingErrors([&] {
        property.set(*facade, written);
        return true;
    });
}

bool CBarcode::readVariant(const PropertyDescriptor& property, const VelkoVariant& value,
                           PropertyValue& written) {
    switch (property.kind) {
        case PropertyKind::Boolean:
            if (value.type != VariantBool) {
                return false;
            }
            written = variantFlag(value);
            return true;
        case PropertyKind::Integer:
        case PropertyKind::Double: {
            int number = 0;
            if (!CastVariantToI4(value, number)) {
                return false;
            }
            if (number < 0) {
                if (property.refusesNegative) {
                    return false;
                }
                // A colour with its top bit set reads back negative; it is taken as 0 like any
                // other.
                number = 0;
            }
            written = number;
            return true;
        }
        case PropertyKind::String: {
            if (value.type != VariantWStr) {
                return false;
            }
            const TextBound bound = property.bound;
            std::wstring text;
            if (boundedText(value.str.chars, bound.longest, text)) {
                written = std::move(text);
                return true;
            }
            if (bound.beyond == LongText::Cut) {
                written = std::wstring(value.str.chars, value.str.chars + bound.longest);
                return true;
            }
            written = std::wstring();
            return bound.beyond == LongText::AsEmpty;
        }
        case PropertyKind::Binary:
            if (value.type != VariantWStr) {
                return false;
            }
            // Exactly as many units as the length says; too many are as good as none.
            written = value.str.length && value.str.length <= property.bound.longest
                          ? convFromShortWchar(value.str.chars, value.str.length)
                          : std::wstring();
            return true;
    }
    return false;
}

bool CBarcode::CastVariantToI4(const VelkoVariant& value, int& result) {
    result = 0;
    if (value.type == VariantI4) {
        result = value.intValue;
        return true;
    }
    if (value.type != VariantR8) {
        return false;
    }
    // Saturate rather than leave an out-of-range conversion undefined.
    const double number = value.doubleValue;
    if (std::isnan(number)) {
        return true;
    }
    if (number <= static_cast<double>(std::numeric_limits<int>::min())) {
        result = std::numeric_limits<int>::min();
    } else if (number >= static_cast<double>(std::numeric_limits<int>::max())) {
        result = std::numeric_limits<int>::max();
    } else {
        result = static_cast<int>(number);
    }
    return true;
}

bool CBarcode::CallAsFunc(long method, VelkoVariant* returned, VelkoVariant* parameters,
                          long count) {
    if (!returned) {
        return false;
    }
    std::memset(static_cast<void*>(returned), 0, sizeof(VelkoVariant));
    returned->type = VariantEmpty;
    if (!facade) {
        return false;
    }
    return reportingErrors([&] {
        switch (method) {
            case kGetBarcode:
                return getBarcode(returned);
            case kFontAt:
                return count == 1 && parameters && fontAt(returned, *parameters);
            case kFindFont:
                return count == 1 && parameters && findFont(returned, *parameters);
            default:
                return false;
        }
    });
}

bool CBarcode::getBarcode(VelkoVariant* value) {
    const LocaleScope localeScope(locale);
    result = 0;
    std::vector<unsigned char> repeatedRows;
    const PImage image = facade->draw(repeatedRows);
    // A logo is for one picture only.
    facade->setLogo(PImage());
    facade->setLogoSizePercent(0.0);
    if (!image.isValid()) {
        result = 1;
        return true;
    }
    int error = 0;
    const std::vector<unsigned char> png = BarcodeVelko::DM2PNG32(
        image.pixelData(), image.width(), image.height(), repeatedRows, &error);
    if (facade->getLastError().code() != 0) {
        result = 1;
    }
    void* buffer = nullptr;
    if (error != 0 || png.empty() || !memory || !memory->allocate(&buffer, png.size()) || !buffer) {
        result = 1;
        return true;
    }
    std::memcpy(buffer, png.data(), png.size());
    value->blob.bytes = static_cast<char*>(buffer);
    value->blob.length = static_cast<uint32_t>(png.size());
    value->type = VariantBlob;
    return true;
}

// A name must come as text, no longer than a name can be: any other parameter is no name.
bool CBarcode::findFont(VelkoVariant* value, const VelkoVariant& parameter) {
    std::wstring name;
    if (parameter.type != VariantWStr || !parameter.str.chars ||
        !boundedText(parameter.str.chars, kLongestShortText, name)) {
        return false;
    }
    putFlag(value, facade->findFont(name));
    return true;
}

bool CBarcode::fontAt(VelkoVariant* value, const VelkoVariant& parameter) {
    if (!memory) {
        return false;
    }
    // The index is read whatever the tag says, as the platform passes it.
    const int index = parameter.intValue;
    const std::wstring name = index < 0 ? std::wstring() : facade->getFontAt(index);
    if (name.empty()) {
        return false;
    }
    unsigned int length = 0;
    unsigned short* chars = AllocAndConvert(memory, name.c_str(), &length);
    if (!chars) {
        return false;
    }
    value->str.chars = chars;
    value->str.length = length;
    value->type = VariantWStr;
    return true;
}

// A name too long for any locale changes nothing, as SetLocale has no answer to give.
void CBarcode::SetLocale(const unsigned short* name) {
    std::wstring text;
    if (!boundedText(name, kLongestShortText, text)) {
        return;
    }
    locale = wstr2str(text) + ".UTF-8";
    set_process_locale(locale);
}

void CBarcode::addError(unsigned int code, const wchar_t* source, const wchar_t* description,
                        long systemCode) {
    if (!connection) {
        return;
    }
    const WcharWrapper hostSource(source);
    const WcharWrapper hostDescription(description);
    connection->reportError(static_cast<unsigned short>(code & 0xFFFF), hostSource.hostString(),
                            hostDescription.hostString(), systemCode);
}
