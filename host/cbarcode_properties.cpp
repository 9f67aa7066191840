#include "host/cbarcode_properties.h"

#include <vector>

#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/barcode_facade2.h"
#include "BarcodeLib/logo_step.h"
#include "host/text_forms.h"
#include "layer/foundation/base64.h"
#include "layer/foundation/p_byte_array.h"

using BarcodeVelko::BarcodeFacade2;

namespace {

constexpr wchar_t kVersionText[] = L"9.0.12.8";

using K = PropertyKind;
using Source = PropertySource;
using Value = PropertyValue;

unsigned unsignedOf(const Value& value) {
    return static_cast<unsigned>(std::get<int>(value));
}

int integerOf(const Value& value) {
    return std::get<int>(value);
}

bool flagOf(const Value& value) {
    return std::get<bool>(value);
}

const wchar_t* textOf(const Value& value) {
    return std::get<std::wstring>(value).c_str();
}

Value fontName(const Source& source) {
    try {
        return source.facade.getFont();
    } catch (const BarcodeException::AbstractBarcodeException&) {
        // No fonts on the system leaves the facade without a font; it draws with the built-in one.
        return std::wstring(L"default");
    }
}

// A picture that doesn't decode is no error to the host: there is simply no logo. Neither is
// one too large, which its header tells before any memory is set aside for it.
void setLogo(BarcodeFacade2& facade, const Value& value) {
    const std::string bytes = base642Raw(wstr2str(std::get<std::wstring>(value)));
    facade.setLogo(BarcodeVelko::decodeLogo(reinterpret_cast<const unsigned char*>(bytes.data()),
                                            bytes.size()));
}

// Readers and writers of the facade, one per kind of value.
template <auto Get>
Value readInteger(const Source& source) {
    return static_cast<int>((source.facade.*Get)());
}

template <auto Get>
Value readFlag(const Source& source) {
    return (source.facade.*Get)();
}

template <auto Get>
Value readText(const Source& source) {
    return std::wstring((source.facade.*Get)());
}

template <auto Set>
void writeUnsigned(BarcodeFacade2& facade, const Value& value) {
    (facade.*Set)(unsignedOf(value));
}

template <auto Set>
void writeSigned(BarcodeFacade2& facade, const Value& value) {
    (facade.*Set)(integerOf(value));
}

template <auto Set>
void writeFlag(BarcodeFacade2& facade, const Value& value) {
    (facade.*Set)(flagOf(value));
}

template <auto Set>
void writeText(BarcodeFacade2& facade, const Value& value) {
    (facade.*Set)(textOf(value));
}

// The byte-sized settings take the low 8 bits of what is written.
template <auto Set>
void writeByte(BarcodeFacade2& facade, const Value& value) {
    (facade.*Set)(static_cast<unsigned char>(unsignedOf(value) & 0xFF));
}

Value readVersion(const Source&) {
    return std::wstring(kVersionText);
}

Value readResult(const Source& source) {
    return source.result;
}

void writeFont(BarcodeFacade2& facade, const Value& value) {
    facade.setFont(std::get<std::wstring>(value));
}

void writeLogoPercent(BarcodeFacade2& facade, const Value& value) {
    facade.setLogoSizePercent(integerOf(value));
}

using F = BarcodeFacade2;

// The common rows: read and write an unsigned integer or a flag of the facade.
template <auto Get, auto Set>
constexpr PropertyDescriptor integer(long index, const wchar_t* english, const wchar_t* russian) {
    return {index, {english, russian}, K::Integer,        true, true,
            false, readInteger<Get>,   writeUnsigned<Set>};
}

template <auto Get, auto Set>
constexpr PropertyDescriptor flag(long index, const wchar_t* english, const wchar_t* russian) {
    return {index, {english, russian}, K::Boolean,    true, true,
            false, readFlag<Get>,      writeFlag<Set>};
}

}  // namespace

constexpr PropertyDescriptor g_properties[kPropCount] = {
    {0, {L"Font", L"Шрифт"}, K::String, true, true, false, fontName, writeFont},
    integer<&F::getFontSize, &F::setFontSize>(1, L"FontSize", L"РазмерШрифта"),
    integer<&F::getTextColor, &F::setTextColor>(2, L"TextColor", L"ЦветТекста"),
    integer<&F::getTextAlign, &F::setTextAlign>(3, L"TextAlign", L"ОриентацияТекста"),
    integer<&F::getTextPos, &F::setTextPos>(4, L"TextPos", L"ПоложениеТекста"),
    flag<&F::getTextVisible, &F::setTextVisible>(5, L"TextVisible", L"ОтображатьТекст"),
    integer<&F::getBgColor, &F::setBgColor>(6, L"BgColor", L"ЦветФона"),
    flag<&F::getBgTransparent, &F::setBgTransparent>(7, L"BgTransparent", L"ПрозрачныйФон"),
    integer<&F::getBarColor, &F::setBarColor>(8, L"BarColor", L"ЦветПолос"),
    integer<&F::getCanvasRotation, &F::setCanvasRotation>(9, L"CanvasRotation", L"УголПоворота"),
    {10,
     {L"CanvasXOffset", L"ГорСмещение"},
     K::Integer,
     true,
     true,
     true,
     readInteger<&F::getCanvasXOffset>,
     writeSigned<&F::setCanvasXOffset>},
    {11,
     {L"CanvasYOffset", L"ВертСмещение"},
     K::Integer,
     true,
     true,
     true,
     readInteger<&F::getCanvasYOffset>,
     writeSigned<&F::setCanvasYOffset>},
    {12,
     {L"CanvasMargin", L"РазмерКрая"},
     K::Integer,
     true,
     true,
     true,
     readInteger<&F::getCanvasMargin>,
     writeSigned<&F::setCanvasMargin>},
    integer<&F::getBarAlign, &F::setBarAlign>(13, L"BarAlign", L"ВыравниваниеКода"),
    integer<&F::getCodeType, &F::setCodeType>(14, L"CodeType", L"ТипКода"),
    flag<&F::getCodeAuto, &F::setCodeAuto>(15, L"CodeAuto", L"АвтоТип"),
    flag<&F::getCodeIsRaw, &F::setCodeIsRaw>(16, L"CodeIsRaw", L"СодержитКС"),
    flag<&F::getCodeShowCS, &F::setCodeShowCS>(17, L"CodeShowCS", L"ВидимостьКС"),
    {18,
     {L"CodeValue", L"ЗначениеКода"},
     K::String,
     false,
     true,
     false,
     nullptr,
     writeText<&F::setCodeValue>},
    {19,
     {L"CodeCheckSymbol", L"КонтрольныйСимвол"},
     K::String,
     true,
     false,
     false,
     readText<&F::getCodeCheckSymbol>,
     nullptr},
    // Reported read-only, yet a write still reaches the facade.
    {20,
     {L"CodeText", L"ТекстКода"},
     K::String,
     true,
     false,
     false,
     readText<&F::getCodeText>,
     writeText<&F::setCodeText>},
    integer<&F::getCodeSentinel, &F::setCodeSentinel>(21, L"CodeSentinel", L"РазделителиКода"),
    {22,
     {L"CodeMinWidth", L"МинимальнаяШиринаКода"},
     K::Integer,
     true,
     false,
     false,
     readInteger<&F::getCodeMinWidth>,
     nullptr},
    {23,
     {L"CodeMinHeight", L"МинимальнаяВысотаКода"},
     K::Integer,
     true,
     false,
     false,
     readInteger<&F::getCodeMinHeight>,
     nullptr},
    integer<&F::getColumnCount, &F::setColumnCount>(24, L"Width", L"Ширина"),
    integer<&F::getRowCount, &F::setRowCount>(25, L"Height", L"Высота"),
    {26,
     {L"AspectRatio", L"Пропорции"},
     K::String,
     true,
     true,
     false,
     readText<&F::getAspectRatio>,
     writeText<&F::setAspectRatio>},
    integer<&F::getECL, &F::setECL>(27, L"ECL", L"ECL"),
    {28,
     {L"FileName", L"ИмяФайла"},
     K::String,
     true,
     true,
     false,
     readText<&F::getFileName>,
     writeText<&F::setFileName>},
    {29,
     {L"FontCount", L"КоличествоШрифтов"},
     K::Integer,
     true,
     false,
     false,
     readInteger<&F::getFontCount>,
     nullptr},
    {30,
     {L"GraphicsPresent", L"ГрафикаУстановлена"},
     K::Boolean,
     true,
     false,
     false,
     readFlag<&F::isGraphicsPresent>,
     nullptr},
    integer<&F::getRow2DCount, &F::setRow2DCount>(31, L"RowCount", L"КоличествоСтрок"),
    integer<&F::getColumn2DCount, &F::setColumn2DCount>(32, L"ColumnCount", L"КоличествоСтолбцов"),
    {33, {L"Version", L"Версия"}, K::String, true, false, false, readVersion, nullptr},
    {34,
     {L"MaxFontSizeForHinting", L"МаксимальныйРазмерШрифтаДляПринтеровНизкогоРазрешения"},
     K::Integer,
     true,
     true,
     false,
     readInteger<&F::getMaxFontSizeForHinting>,
     writeSigned<&F::setMaxFontSizeForHinting>},
    {35,
     {L"QRErrorCorrectionLevel", L"УровеньКоррекцииQR"},
     K::Integer,
     true,
     true,
     false,
     readInteger<&F::getQRErrorCorrectionLevel>,
     writeByte<&F::setQRErrorCorrectionLevel>},
    {36,
     {L"GS1DatabarRowCount", L"GS1DatabarКоличествоСтрок"},
     K::Integer,
     true,
     true,
     false,
     readInteger<&F::getGS1DatabarRowCount>,
     writeByte<&F::setGS1DatabarRowCount>},
    integer<&F::getBarVerticalAlign, &F::setBarVerticalAlign>(37, L"BarVerticalAlign",
                                                              L"ВертикальноеВыравниваниеКода"),
    {38,
     {L"InputDataType", L"ТипВходныхДанных"},
     K::Integer,
     true,
     true,
     false,
     readInteger<&F::getDataType>,
     writeSigned<&F::setDataType>},
    {39, {L"Result", L"Результат"}, K::Integer, true, false, false, readResult, nullptr},
    flag<&F::getRemoveExeedBackgroudFlag, &F::setRemoveExeedBackgroudFlag>(
        40, L"RemoveExeedBackgroud", L"УбратьЛишнийФон"),
    {41, {L"LogoImage", L"ЛоготипКартинка"}, K::Binary, false, true, false, nullptr, setLogo},
    {42,
     {L"LogoSizePercentFromBarcode", L"ЛоготипРазмерПроцентОтШК"},
     K::Double,
     true,
     true,
     false,
     readInteger<&F::getLogoSizePercent>,
     writeLogoPercent},
};

namespace {

constexpr bool rowsInIndexOrder() {
    for (long i = 0; i < kPropCount; ++i) {
        if (g_properties[i].index != i) {
            return false;
        }
    }
    return true;
}
static_assert(rowsInIndexOrder(), "a property's row stands at its index");

template <class NameOf>
long findName(long count, const std::wstring& name, NameOf nameOf) {
    for (int alias = 0; alias < 2; ++alias) {
        for (long i = 0; i < count; ++i) {
            if (name == nameOf(i, alias)) {
                return i;
            }
        }
    }
    return -1;
}

}  // namespace

const wchar_t* const g_aszMethodNames[kMethodCount][2] = {
    {L"GetBarcode", L"ПолучитьШтрихкод"},
    {L"FontAt", L"ШрифтПоИндексу"},
    {L"FindFont", L"НайтиШрифт"},
};

long findPropertyName(const std::wstring& name) {
    return findName(kPropCount, name,
                    [](long i, int alias) { return g_properties[i].names[alias]; });
}

long findMethodName(const std::wstring& name) {
    return findName(kMethodCount, name,
                    [](long i, int alias) { return g_aszMethodNames[i][alias]; });
}
