#include "host/cbarcode.h"

#include <lodepng.h>

#include <clocale>
#include <cmath>
#include <cstring>
#include <exception>
#include <limits>
#include <vector>

#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/barcode_facade2.h"
#include "BarcodeLib/dm2png32.h"
#include "host/cbarcode_names.h"
#include "host/text_forms.h"
#include "host/wchar_wrapper.h"
#include "layer/fonts/p_font_glyphs_cache.h"
#include "layer/foundation/base64.h"
#include "layer/foundation/p_byte_array.h"

using BarcodeVelko::BarcodeFacade2;

namespace {

enum Property : long {
    kFont = 0,
    kFontSize,
    kTextColor,
    kTextAlign,
    kTextPos,
    kTextVisible,
    kBgColor,
    kBgTransparent,
    kBarColor,
    kCanvasRotation,
    kCanvasXOffset,
    kCanvasYOffset,
    kCanvasMargin,
    kBarAlign,
    kCodeType,
    kCodeAuto,
    kCodeIsRaw,
    kCodeShowCS,
    kCodeValue,
    kCodeCheckSymbol,
    kCodeText,
    kCodeSentinel,
    kCodeMinWidth,
    kCodeMinHeight,
    kWidth,
    kHeight,
    kAspectRatio,
    kECL,
    kFileName,
    kFontCount,
    kGraphicsPresent,
    kRowCount,
    kColumnCount,
    kVersion,
    kMaxFontSizeForHinting,
    kQRErrorCorrectionLevel,
    kGS1DatabarRowCount,
    kBarVerticalAlign,
    kInputDataType,
    kResult,
    kRemoveExeedBackgroud,
    kLogoImage,
    kLogoSizePercentFromBarcode,
};

enum Method : long { kGetBarcode = 0, kFontAt, kFindFont };

constexpr unsigned short kHostErrorCode = 1003;
const wchar_t kErrorSource[] = L"VelkoBarCode";
const wchar_t kVersionText[] = L"9.0.12.8";
const wchar_t kClassAlias[] = L"Barcode";

bool inRange(long index, long count) {
    return index >= 0 && index < count;
}

// A fresh copy of a name in host memory; null for an index or alias out of range.
template <long Count>
const unsigned short* nameAt(const wchar_t* const (&tables)[2][Count], long index, long alias,
                             IVelkoMemory* memory) {
    if (!inRange(index, Count) || !inRange(alias, 2)) {
        return nullptr;
    }
    return AllocAndConvert(memory, tables[alias][index], nullptr);
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
// the picture ends: the one given to SetLocale, or else the one in force before.
class LocaleScope {
public:
    explicit LocaleScope(const std::string& hostLocale) {
        const char* current = std::setlocale(LC_ALL, nullptr);
        restore = !hostLocale.empty() ? hostLocale : current ? current : "C";
        std::setlocale(LC_ALL, "C");
    }
    ~LocaleScope() { std::setlocale(LC_ALL, restore.c_str()); }

private:
    std::string restore;
};

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
    return findName(g_aszPropNames, convFromShortWchar(name));
}

const unsigned short* CBarcode::GetPropName(long index, long alias) {
    return nameAt(g_aszPropNames, index, alias, memory);
}

bool CBarcode::IsPropReadable(long index) {
    return index != kCodeValue && index != kLogoImage;
}

bool CBarcode::IsPropWritable(long index) {
    switch (index) {
        case kCodeCheckSymbol:
        case kCodeText:
        case kCodeMinWidth:
        case kCodeMinHeight:
        case kFontCount:
        case kGraphicsPresent:
        case kVersion:
        case kResult:
            return false;
        default:
            return true;
    }
}

long CBarcode::GetNMethods() {
    return kMethodCount;
}

long CBarcode::FindMethod(const unsigned short* name) {
    return findName(g_aszMethodNames, convFromShortWchar(name));
}

const unsigned short* CBarcode::GetMethodName(long index, long alias) {
    return nameAt(g_aszMethodNames, index, alias, memory);
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

std::wstring CBarcode::fontName() const {
    try {
        return facade->getFont();
    } catch (const BarcodeException::AbstractBarcodeException&) {
        // No fonts on the system leaves the facade without a font; it draws with the built-in one.
        return L"default";
    }
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
    if (!inRange(index, kPropCount)) {
        return false;
    }
    const BarcodeFacade2& f = *facade;
    switch (index) {
        case kFont:
            return putString(value, fontName());
        case kCodeCheckSymbol:
            return putString(value, f.getCodeCheckSymbol());
        case kCodeText:
            return putString(value, f.getCodeText());
        case kAspectRatio:
            return putString(value, f.getAspectRatio());
        case kFileName:
            return putString(value, f.getFileName());
        case kVersion:
            return putString(value, kVersionText);
        case kCodeValue:
        case kLogoImage:
            return false;
        case kTextVisible:
        case kBgTransparent:
        case kCodeAuto:
        case kCodeIsRaw:
        case kCodeShowCS:
        case kGraphicsPresent:
        case kRemoveExeedBackgroud:
            putFlag(value, flagOf(index));
            return true;
        default:
            putInteger(value, static_cast<int>(integerOf(index)));
            return true;
    }
}

bool CBarcode::flagOf(long index) const {
    const BarcodeFacade2& f = *facade;
    switch (index) {
        case kTextVisible:
            return f.getTextVisible();
        case kBgTransparent:
            return f.getBgTransparent();
        case kCodeAuto:
            return f.getCodeAuto();
        case kCodeIsRaw:
            return f.getCodeIsRaw();
        case kCodeShowCS:
            return f.getCodeShowCS();
        case kGraphicsPresent:
            return f.isGraphicsPresent();
        default:
            return f.getRemoveExeedBackgroudFlag();
    }
}

unsigned CBarcode::integerOf(long index) const {
    const BarcodeFacade2& f = *facade;
    switch (index) {
        case kFontSize:
            return f.getFontSize();
        case kTextColor:
            return f.getTextColor();
        case kTextAlign:
            return f.getTextAlign();
        case kTextPos:
            return f.getTextPos();
        case kBgColor:
            return f.getBgColor();
        case kBarColor:
            return f.getBarColor();
        case kCanvasRotation:
            return f.getCanvasRotation();
        case kCanvasXOffset:
            return static_cast<unsigned>(f.getCanvasXOffset());
        case kCanvasYOffset:
            return static_cast<unsigned>(f.getCanvasYOffset());
        case kCanvasMargin:
            return static_cast<unsigned>(f.getCanvasMargin());
        case kBarAlign:
            return f.getBarAlign();
        case kCodeType:
            return f.getCodeType();
        case kCodeSentinel:
            return f.getCodeSentinel();
        case kCodeMinWidth:
            return f.getCodeMinWidth();
        case kCodeMinHeight:
            return f.getCodeMinHeight();
        case kWidth:
            return f.getColumnCount();
        case kHeight:
            return f.getRowCount();
        case kECL:
            return f.getECL();
        case kFontCount:
            return f.getFontCount();
        case kRowCount:
            return f.getRow2DCount();
        case kColumnCount:
            return f.getColumn2DCount();
        case kMaxFontSizeForHinting:
            return static_cast<unsigned>(f.getMaxFontSizeForHinting());
        case kQRErrorCorrectionLevel:
            return f.getQRErrorCorrectionLevel();
        case kGS1DatabarRowCount:
            return f.getGS1DatabarRowCount();
        case kBarVerticalAlign:
            return f.getBarVerticalAlign();
        case kInputDataType:
            return static_cast<unsigned>(f.getDataType());
        case kResult:
            return static_cast<unsigned>(result);
        case kLogoSizePercentFromBarcode:
            return static_cast<unsigned>(static_cast<int>(f.getLogoSizePercent()));
        default:
            return 0;
    }
}

bool CBarcode::SetPropVal(long index, VelkoVariant* value) {
    if (!value || !inRange(index, kPropCount)) {
        return false;
    }
    return reportingErrors([&] {
        switch (index) {
            case kFont:
            case kCodeValue:
            case kAspectRatio:
            case kFileName:
            case kCodeText:
                return setString(index, *value);
            case kTextVisible:
            case kBgTransparent:
            case kCodeAuto:
            case kCodeIsRaw:
            case kCodeShowCS:
            case kRemoveExeedBackgroud: {
                if (value->type != VariantBool) {
                    return false;
                }
                const bool flag = variantFlag(*value);
                switch (index) {
                    case kTextVisible:
                        facade->setTextVisible(flag);
                        break;
                    case kBgTransparent:
                        facade->setBgTransparent(flag);
                        break;
                    case kCodeAuto:
                        facade->setCodeAuto(flag);
                        break;
                    case kCodeIsRaw:
                        facade->setCodeIsRaw(flag);
                        break;
                    case kCodeShowCS:
                        facade->setCodeShowCS(flag);
                        break;
                    default:
                        facade->setRemoveExeedBackgroudFlag(flag);
                        break;
                }
                return true;
            }
            case kLogoImage:
                return setLogo(*value);
            default:
                return setInteger(index, *value);
        }
    });
}

bool CBarcode::setString(long index, const VelkoVariant& value) {
    if (value.type != VariantWStr) {
        return false;
    }
    const std::wstring text = convFromShortWchar(value.str.chars);
    switch (index) {
        case kFont:
            facade->setFont(text);
            break;
        case kCodeValue:
            facade->setCodeValue(text.c_str());
            break;
        case kAspectRatio:
            facade->setAspectRatio(text.c_str());
            break;
        case kFileName:
            facade->setFileName(text.c_str());
            break;
        default:
            facade->setCodeText(text.c_str());
            break;
    }
    return true;
}

bool CBarcode::setInteger(long index, const VelkoVariant& value) {
    int number = 0;
    if (!CastVariantToI4(value, number)) {
        return false;
    }
    if (number < 0) {
        if (index == kCanvasXOffset || index == kCanvasYOffset || index == kCanvasMargin) {
            return false;
        }
        // A colour with its top bit set reads back negative; it is taken as 0 like any other.
        number = 0;
    }
    const unsigned u = static_cast<unsigned>(number);
    BarcodeFacade2& f = *facade;
    switch (index) {
        case kFontSize:
            f.setFontSize(u);
            break;
        case kTextColor:
            f.setTextColor(u);
            break;
        case kTextAlign:
            f.setTextAlign(u);
            break;
        case kTextPos:
            f.setTextPos(u);
            break;
        case kBgColor:
            f.setBgColor(u);
            break;
        case kBarColor:
            f.setBarColor(u);
            break;
        case kCanvasRotation:
            f.setCanvasRotation(u);
            break;
        case kCanvasXOffset:
            f.setCanvasXOffset(number);
            break;
        case kCanvasYOffset:
            f.setCanvasYOffset(number);
            break;
        case kCanvasMargin:
            f.setCanvasMargin(number);
            break;
        case kBarAlign:
            f.setBarAlign(u);
            break;
        case kCodeType:
            f.setCodeType(u);
            break;
        case kCodeSentinel:
            f.setCodeSentinel(u);
            break;
        case kWidth:
            f.setColumnCount(u);
            break;
        case kHeight:
            f.setRowCount(u);
            break;
        case kECL:
            f.setECL(u);
            break;
        case kRowCount:
            f.setRow2DCount(u);
            break;
        case kColumnCount:
            f.setColumn2DCount(u);
            break;
        case kMaxFontSizeForHinting:
            f.setMaxFontSizeForHinting(number);
            break;
        case kQRErrorCorrectionLevel:
            f.setQRErrorCorrectionLevel(static_cast<unsigned char>(u & 0xFF));
            break;
        case kGS1DatabarRowCount:
            f.setGS1DatabarRowCount(static_cast<unsigned char>(u & 0xFF));
            break;
        case kBarVerticalAlign:
            f.setBarVerticalAlign(u);
            break;
        case kInputDataType:
            f.setDataType(number);
            break;
        case kLogoSizePercentFromBarcode:
            f.setLogoSizePercent(number);
            break;
        default:
            return false;
    }
    return true;
}

bool CBarcode::setLogo(const VelkoVariant& value) {
    if (value.type != VariantWStr) {
        return false;
    }
    const std::wstring text =
        value.str.length ? convFromShortWchar(value.str.chars, value.str.length) : std::wstring();
    const std::string bytes = base642Raw(wstr2str(text));
    std::vector<unsigned char> rgba;
    unsigned width = 0;
    unsigned height = 0;
    if (bytes.empty() ||
        lodepng::decode(rgba, width, height, reinterpret_cast<const unsigned char*>(bytes.data()),
                        bytes.size(), LCT_RGBA, 8) != 0 ||
        width == 0 || height == 0) {
        // A picture that doesn't decode is no error to the host: there is simply no logo.
        facade->setLogo(PImage());
        return true;
    }
    facade->setLogo(PImage(width, height, PByteArray(rgba.data(), rgba.size())));
    return true;
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

bool CBarcode::CallAsFunc(long method, VelkoVariant* result, VelkoVariant* parameters, long count) {
    if (!result) {
        return false;
    }
    std::memset(static_cast<void*>(result), 0, sizeof(VelkoVariant));
    result->type = VariantEmpty;
    return reportingErrors([&] {
        switch (method) {
            case kGetBarcode:
                return getBarcode(result);
            case kFontAt:
                return count == 1 && parameters && fontAt(result, *parameters);
            case kFindFont:
                if (count != 1 || !parameters) {
                    return false;
                }
                putFlag(result, facade->findFont(convFromShortWchar(parameters->str.chars)));
                return true;
            default:
                return false;
        }
    });
}

bool CBarcode::getBarcode(VelkoVariant* value) {
    const LocaleScope localeScope(locale);
    result = 0;
    const PImage image = facade->draw();
    // A logo is for one picture only.
    facade->setLogo(PImage());
    facade->setLogoSizePercent(0.0);
    if (!image.isValid()) {
        result = 1;
        return true;
    }
    int error = 0;
    const std::vector<unsigned char> png = BarcodeVelko::DM2PNG32(
        image.pixelData(), image.width(), image.height(), image.bytesPerPixel(), &error);
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

bool CBarcode::fontAt(VelkoVariant* value, const VelkoVariant& parameter) {
    if (!facade || !memory) {
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

void CBarcode::SetLocale(const unsigned short* name) {
    locale = wstr2str(convFromShortWchar(name)) + ".UTF-8";
    std::setlocale(LC_ALL, locale.c_str());
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
