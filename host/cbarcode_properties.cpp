#include "host/cbarcode_properties.h"

#include <vector>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/png/logo_step.h"
#include "host/text_bounds.h"
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
using B = TextBound;
using L = LongText;

// Row makers, one for each sort of row, so that a row names what sets it apart.
enum Access { ReadWrite, ReadOnly, WriteOnly, ReadOnlyButWritten };
enum Negative { NegativeAsZero, NegativeRefused };

constexpr PropertyDescriptor row(long index, const wchar_t* english, const wchar_t* russian, K kind,
                                 Access access, Value (*get)(const Source&),
                                 void (*set)(F&, const Value&), B bound = {0, L::Refused},
                                 Negative negative = NegativeAsZero) {
    return {index,
            {english, russian},
            kind,
            access != WriteOnly,
            access == ReadWrite || access == WriteOnly,
            negative == NegativeRefused,
            get,
            set,
            bound};
}

// An unsigned integer or a flag of the facade, read and written.
template <auto Get, auto Set>
constexpr PropertyDescriptor integer(long index, const wchar_t* english, const wchar_t* russian) {
    return row(index, english, russian, K::Integer, ReadWrite, readInteger<Get>,
               writeUnsigned<Set>);
}

template <auto Get, auto Set>
constexpr PropertyDescriptor flag(long index, const wchar_t* english, const wchar_t* russian) {
    return row(index, english, russian, K::Boolean, ReadWrite, readFlag<Get>, writeFlag<Set>);
}

// A signed integer whose negative values the host can't write.
template <auto Get, auto Set>
constexpr PropertyDescriptor offset(long index, const wchar_t* english, const wchar_t* russian) {
    return row(index, english, russian, K::Integer, ReadWrite, readInteger<Get>, writeSigned<Set>,
               {0, L::Refused}, NegativeRefused);
}

template <auto Get>
constexpr PropertyDescriptor readOnly(long index, const wchar_t* english, const wchar_t* russian) {
    return row(index, english, russian, K::Integer, ReadOnly, readInteger<Get>, nullptr);
}

constexpr B kShortText{kLongestShortText, L::AsEmpty};

}  // namespace

// clang-format off
constexpr PropertyDescriptor g_properties[kPropCount] = {
    row(0, L"Font", L"Шрифт", K::String, ReadWrite, fontName, writeFont, kShortText),
    integer<&F::getFontSize, &F::setFontSize>(1, L"FontSize", L"РазмерШрифта"),
    integer<&F::getTextColor, &F::setTextColor>(2, L"TextColor", L"ЦветТекста"),
    integer<&F::getTextAlign, &F::setTextAlign>(3, L"TextAlign", L"ОриентацияТекста"),
    integer<&F::getTextPos, &F::setTextPos>(4, L"TextPos", L"ПоложениеТекста"),
    flag<&F::getTextVisible, &F::setTextVisible>(5, L"TextVisible", L"ОтображатьТекст"),
    integer<&F::getBgColor, &F::setBgColor>(6, L"BgColor", L"ЦветФона"),
    flag<&F::getBgTransparent, &F::setBgTransparent>(7, L"BgTransparent", L"ПрозрачныйФон"),
    integer<&F::getBarColor, &F::setBarColor>(8, L"BarColor", L"ЦветПолос"),
    integer<&F::getCanvasRotation, &F::setCanvasRotation>(9, L"CanvasRotation", L"УголПоворота"),
    offset<&F::getCanvasXOffset, &F::setCanvasXOffset>(10, L"CanvasXOffset", L"ГорСмещение"),
    offset<&F::getCanvasYOffset, &F::setCanvasYOffset>(11, L"CanvasYOffset", L"ВертСмещение"),
    offset<&F::getCanvasMargin, &F::setCanvasMargin>(12, L"CanvasMargin", L"РазмерКрая"),
    integer<&F::getBarAlign, &F::setBarAlign>(13, L"BarAlign", L"ВыравниваниеКода"),
    integer<&F::getCodeType, &F::setCodeType>(14, L"CodeType", L"ТипКода"),
    flag<&F::getCodeAuto, &F::setCodeAuto>(15, L"CodeAuto", L"АвтоТип"),
    flag<&F::getCodeIsRaw, &F::setCodeIsRaw>(16, L"CodeIsRaw", L"СодержитКС"),
    flag<&F::getCodeShowCS, &F::setCodeShowCS>(17, L"CodeShowCS", L"ВидимостьКС"),
    row(18, L"CodeValue", L"ЗначениеКода", K::String, WriteOnly, nullptr, writeText<&F::setCodeValue>, {kLongestCodeValue, L::Cut}),
    row(19, L"CodeCheckSymbol", L"КонтрольныйСимвол", K::String, ReadOnly, readText<&F::getCodeCheckSymbol>, nullptr),
    row(20, L"CodeText", L"ТекстКода", K::String, ReadOnlyButWritten, readText<&F::getCodeText>, writeText<&F::setCodeText>, {kLongestCodeText, L::Refused}),
    integer<&F::getCodeSentinel, &F::setCodeSentinel>(21, L"CodeSentinel", L"РазделителиКода"),
    readOnly<&F::getCodeMinWidth>(22, L"CodeMinWidth", L"МинимальнаяШиринаКода"),
    readOnly<&F::getCodeMinHeight>(23, L"CodeMinHeight", L"МинимальнаяВысотаКода"),
    integer<&F::getColumnCount, &F::setColumnCount>(24, L"Width", L"Ширина"),
    integer<&F::getRowCount, &F::setRowCount>(25, L"Height", L"Высота"),
    row(26, L"AspectRatio", L"Пропорции", K::String, ReadWrite, readText<&F::getAspectRatio>, writeText<&F::setAspectRatio>, kShortText),
    integer<&F::getECL, &F::setECL>(27, L"ECL", L"ECL"),
    row(28, L"FileName", L"ИмяФайла", K::String, ReadWrite, readText<&F::getFileName>, writeText<&F::setFileName>, {kLongestFileName, L::Refused}),
    readOnly<&F::getFontCount>(29, L"FontCount", L"КоличествоШрифтов"),
    row(30, L"GraphicsPresent", L"ГрафикаУстановлена", K::Boolean, ReadOnly, readFlag<&F::isGraphicsPresent>, nullptr),
    integer<&F::getRow2DCount, &F::setRow2DCount>(31, L"RowCount", L"КоличествоСтрок"),
    integer<&F::getColumn2DCount, &F::setColumn2DCount>(32, L"ColumnCount", L"КоличествоСтолбцов"),
    row(33, L"Version", L"Версия", K::String, ReadOnly, readVersion, nullptr),
    row(34, L"MaxFontSizeForHinting", L"МаксимальныйРазмерШрифтаДляПринтеровНизкогоРазрешения", K::Integer, ReadWrite, readInteger<&F::getMaxFontSizeForHinting>, writeSigned<&F::setMaxFontSizeForHinting>),
    row(35, L"QRErrorCorrectionLevel", L"УровеньКоррекцииQR", K::Integer, ReadWrite, readInteger<&F::getQRErrorCorrectionLevel>, writeByte<&F::setQRErrorCorrectionLevel>),
    row(36, L"GS1DatabarRowCount", L"GS1DatabarКоличествоСтрок", K::Integer, ReadWrite, readInteger<&F::getGS1DatabarRowCount>, writeByte<&F::setGS1DatabarRowCount>),
    integer<&F::getBarVerticalAlign, &F::setBarVerticalAlign>(37, L"BarVerticalAlign", L"ВертикальноеВыравниваниеКода"),
    row(38, L"InputDataType", L"ТипВходныхДанных", K::Integer, ReadWrite, readInteger<&F::getDataType>, writeSigned<&F::setDataType>),
    row(39, L"Result", L"Результат", K::Integer, ReadOnly, readResult, nullptr),
    flag<&F::getRemoveExeedBackgroudFlag, &F::setRemoveExeedBackgroudFlag>(40, L"RemoveExeedBackgroud", L"УбратьЛишнийФон"),
    row(41, L"LogoImage", L"ЛоготипКартинка", K::Binary, WriteOnly, nullptr, setLogo, {kLongestLogoText, L::AsEmpty}),
    row(42, L"LogoSizePercentFromBarcode", L"ЛоготипРазмерПроцентОтШК", K::Double, ReadWrite, readInteger<&F::getLogoSizePercent>, writeLogoPercent),
};
// clang-format on

constexpr const wchar_t* g_aszMethodNames[kMethodCount][2] = {
    {L"GetBarcode", L"ПолучитьШтрихкод"},
    {L"FontAt", L"ШрифтПоИндексу"},
    {L"FindFont", L"НайтиШрифт"},
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

constexpr bool withinLongestName(const wchar_t* name) {
    std::size_t length = 0;
    while (name[length] != 0) {
        ++length;
    }
    return length <= kLongestName;
}

constexpr bool namesWithinBound() {
    for (int alias = 0; alias < 2; ++alias) {
        for (long i = 0; i < kPropCount; ++i) {
            if (!withinLongestName(g_properties[i].names[alias])) {
                return false;
            }
        }
        for (long i = 0; i < kMethodCount; ++i) {
            if (!withinLongestName(g_aszMethodNames[i][alias])) {
                return false;
            }
        }
    }
    return true;
}
static_assert(namesWithinBound(), "a name the host looks up is measured only this far");

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

long findPropertyName(const std::wstring& name) {
    return findName(kPropCount, name,
                    [](long i, int alias) { return g_properties[i].names[alias]; });
}

long findMethodName(const std::wstring& name) {
    return findName(kMethodCount, name,
                    [](long i, int alias) { return g_aszMethodNames[i][alias]; });
}
