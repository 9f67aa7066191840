#include <gtest/gtest.h>

#include <ZXing/BarcodeFormat.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "tests/support/scan_harness.h"
#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"
#include "tools/host/host_strings.h"

using VelkoHost::ExtensionLibrary;
using VelkoHost::ExtensionSession;
using VelkoHost::Value;

namespace {

const ExtensionLibrary& library() {
    static const ExtensionLibrary loaded(ExtensionLibrary::defaultPath());
    return loaded;
}

std::vector<unsigned short> host(const std::string& utf8) {
    const std::u16string units = VelkoHost::toUtf16(utf8);
    std::vector<unsigned short> text(units.begin(), units.end());
    text.push_back(0);
    return text;
}

constexpr long kFontAt = 1;
constexpr long kFindFont = 2;

std::string sized(std::string head, std::size_t length, char fill) {
    head.resize(length, fill);
    return head;
}

std::string repeated(const std::string& unit, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += unit;
    }
    return text;
}

// Every session ends with the allocator's books balanced and no buffer overrun or foreign.
class ExtensionTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(library().loaded()) << library().error();
        ASSERT_NE(session.object(), nullptr);
    }
    void TearDown() override {
        EXPECT_FALSE(session.sawBufferFault());
        EXPECT_EQ(session.memory().outstanding(), 0u);
    }

    IVelkoExtension& object() { return *session.object(); }

    ExtensionSession session{library()};
};

// Names are matched case and all, each in its own table; indices past the tables have no name.
TEST_F(ExtensionTest, RegistersItsTablesAndMatchesNamesExactly) {
    EXPECT_EQ(object().GetInfo(), 2004);
    EXPECT_EQ(library().setPlatformCapabilities(0), 1);
    EXPECT_EQ(VelkoHost::toUtf8(VelkoHost::fromHostString(library().getClassNames())), "CBarcode");
    for (const char* name : {"bgcolor", "getbarcode", "GetBarcode"}) {
        EXPECT_EQ(object().FindProp(host(name).data()), -1) << name;
    }
    EXPECT_EQ(object().FindMethod(host("ЦветФона").data()), -1);
    EXPECT_EQ(object().GetPropName(43, 0), nullptr);
    EXPECT_EQ(object().GetPropName(0, 2), nullptr);
    EXPECT_EQ(object().GetMethodName(3, 0), nullptr);
    session.memory().failNextAllocation();
    EXPECT_EQ(object().GetPropName(0, 0), nullptr);
    for (long index : {-1L, 43L}) {
        EXPECT_TRUE(object().IsPropReadable(index) && object().IsPropWritable(index)) << index;
    }
}

std::string sourceFile(const std::string& path) {
    std::ifstream file(std::string(std::getenv("VELKO_SOURCE_DIR")) + "/" + path);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

// Every property and method by its index: both names lead back to it and the reference for
// host developers names them; a value of its kind written through the host reads back as the
// facade keeps it. An empty read: not readable; an integer read of -1: readable, with a value
// that depends on the symbol or the system.
TEST_F(ExtensionTest, EveryPropertyAndMethodByItsNamesAndKind) {
    const std::string reference = sourceFile("docs/properties.md");
    ASSERT_FALSE(reference.empty());
    // Both names of an entry lead back to it, and the reference quotes them.
    const auto expectNames = [&](long index, const char* english, const char* russian,
                                 bool method) {
        for (long alias = 0; alias < 2; ++alias) {
            const unsigned short* name =
                method ? object().GetMethodName(index, alias) : object().GetPropName(index, alias);
            ASSERT_NE(name, nullptr);
            EXPECT_TRUE(session.memory().intact(name));
            const std::string text = VelkoHost::toUtf8(VelkoHost::fromHostString(name));
            EXPECT_EQ(text, alias == 0 ? english : russian);
            EXPECT_NE(reference.find("`" + text + "`"), std::string::npos) << text;
            EXPECT_EQ(method ? object().FindMethod(name) : object().FindProp(name), index);
            EXPECT_TRUE(session.memory().release(name));
        }
    };
    const std::string logo =
        "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mP8z8DwHwAFBQIAX8jx0gAAAABJRU5Erk"
        "Jggg==";
    const struct {
        const char* english;
        const char* russian;
        Value written;
        Value read;
    } properties[] = {
        {"Font", "Шрифт", std::string("DejaVuSans"), std::string("DejaVuSans")},
        {"FontSize", "РазмерШрифта", 14, 14},
        {"TextColor", "ЦветТекста", 0x112233, 0x112233},
        {"TextAlign", "ОриентацияТекста", 2, 2},
        {"TextPos", "ПоложениеТекста", 1, 1},
        {"TextVisible", "ОтображатьТекст", false, false},
        {"BgColor", "ЦветФона", 0x445566, 0x445566},
        {"BgTransparent", "ПрозрачныйФон", true, true},
        {"BarColor", "ЦветПолос", 0x778899, 0x778899},
        {"CanvasRotation", "УголПоворота", 270, 270},
        {"CanvasXOffset", "ГорСмещение", 3, 3},
        {"CanvasYOffset", "ВертСмещение", 4, 4},
        {"CanvasMargin", "РазмерКрая", 5, 5},
        {"BarAlign", "ВыравниваниеКода", 3, 3},
        {"CodeType", "ТипКода", 3, 3},
        {"CodeAuto", "АвтоТип", false, false},
        {"CodeIsRaw", "СодержитКС", true, true},
        {"CodeShowCS", "ВидимостьКС", false, false},
        {"CodeValue", "ЗначениеКода", std::string("ABC"), Value()},
        {"CodeCheckSymbol", "КонтрольныйСимвол", std::string("1"), std::string()},
        {"CodeText", "ТекстКода", std::string("text"), std::string("text")},
        {"CodeSentinel", "РазделителиКода", 40, 40},
        {"CodeMinWidth", "МинимальнаяШиринаКода", 1, -1},
        {"CodeMinHeight", "МинимальнаяВысотаКода", 1, -1},
        {"Width", "Ширина", 321, 321},
        {"Height", "Высота", 123, 123},
        {"AspectRatio", "Пропорции", std::string("2:3"), std::string("2:3")},
        {"ECL", "ECL", 4, 4},
        {"FileName", "ИмяФайла", std::string("a.png"), std::string("a.png")},
        {"FontCount", "КоличествоШрифтов", 1, -1},
        {"GraphicsPresent", "ГрафикаУстановлена", false, true},
        {"RowCount", "КоличествоСтрок", 6, 6},
        {"ColumnCount", "КоличествоСтолбцов", 7, 7},
        {"Version", "Версия", std::string("1"), std::string("9.0.12.8")},
        {"MaxFontSizeForHinting", "МаксимальныйРазмерШрифтаДляПринтеровНизкогоРазрешения", 20, 20},
        {"QRErrorCorrectionLevel", "УровеньКоррекцииQR", 3, 3},
        {"GS1DatabarRowCount", "GS1DatabarКоличествоСтрок", 4, 4},
        {"BarVerticalAlign", "ВертикальноеВыравниваниеКода", 2, 2},
        {"InputDataType", "ТипВходныхДанных", 1, 1},
        {"Result", "Результат", 1, 0},
        {"RemoveExeedBackgroud", "УбратьЛишнийФон", true, true},
        {"LogoImage", "ЛоготипКартинка", logo, Value()},
        {"LogoSizePercentFromBarcode", "ЛоготипРазмерПроцентОтШК", 25, 25},
    };
    const std::set<long> readOnly = {19, 20, 22, 23, 29, 30, 33, 39};
    ASSERT_EQ(std::size(properties), static_cast<size_t>(object().GetNProps()));
    for (long index = 0; index < object().GetNProps(); ++index) {
        const auto& p = properties[index];
        SCOPED_TRACE(p.english);
        expectNames(index, p.english, p.russian, false);
        EXPECT_EQ(object().IsPropWritable(index), readOnly.count(index) == 0);
        EXPECT_EQ(session.set(index, p.written), readOnly.count(index) == 0 || index == 20);
        const Value read = session.get(index);
        if (p.read == Value(-1)) {
            EXPECT_TRUE(std::holds_alternative<int>(read));
        } else {
            EXPECT_EQ(read, p.read);
        }
        EXPECT_EQ(object().IsPropReadable(index), p.read != Value());
    }
    EXPECT_TRUE(session.host().errors.empty());

    const struct {
        const char* english;
        const char* russian;
        long parameters;
    } methods[] = {{"GetBarcode", "ПолучитьШтрихкод", 0},
                   {"FontAt", "ШрифтПоИндексу", 1},
                   {"FindFont", "НайтиШрифт", 1}};
    ASSERT_EQ(std::size(methods), static_cast<size_t>(object().GetNMethods()));
    for (long index = 0; index < 4; ++index) {
        if (index < object().GetNMethods()) {
            expectNames(index, methods[index].english, methods[index].russian, true);
        }
        EXPECT_EQ(object().HasRetVal(index), index < 3);
        EXPECT_EQ(object().GetNParams(index), index < 3 ? methods[index].parameters : 0);
        EXPECT_FALSE(object().CallAsProc(index, nullptr, 0));
    }
}

// Defaults (no write), refused writes and the host's integer rules, in this order on one
// object. Negative offsets and margins are refused, other negatives arrive as 0; doubles are
// truncated and saturate; only the low byte reaches the QR level and the DataBar row count.
TEST_F(ExtensionTest, DefaultsTagsAndIntegerRules) {
    const struct {
        const char* name;
        std::optional<Value> written;
        bool taken;
        Value read;
    } rows[] = {
        {"Font", {}, true, std::string("default")},
        {"FontSize", {}, true, 10},
        {"TextColor", {}, true, static_cast<int>(0xFF000000)},
        {"TextAlign", {}, true, -1},
        {"AspectRatio", {}, true, std::string("1:4")},
        {"GS1DatabarRowCount", {}, true, 100},
        {"TextVisible", 1, false, true},
        {"CodeValue", 12, false, Value()},
        {"FontSize", std::string("12"), false, 10},
        {"FontSize", Value(), false, 10},
        {"CanvasMargin", -1, false, 0},
        {"CanvasXOffset", 7, true, 7},
        {"CanvasXOffset", -7, false, 7},
        {"FontSize", -1, true, 0},
        {"BarColor", static_cast<int>(0xFF0000FF), true, 0},
        {"FontSize", 12.9, true, 12},
        {"Width", 1e12, true, 8000},
        {"Width", -1e12, true, 0},
        {"QRErrorCorrectionLevel", 0x102, true, 2},
        {"GS1DatabarRowCount", 0x305, true, 5},
        {"LogoSizePercentFromBarcode", 42.7, true, 42},
    };
    for (const auto& row : rows) {
        if (row.written) {
            EXPECT_EQ(session.set(row.name, *row.written), row.taken) << row.name;
        }
        EXPECT_EQ(session.get(row.name), row.read) << row.name;
    }
    EXPECT_FALSE(session.set(43, 1));
    EXPECT_FALSE(session.set(-1, 1));
    EXPECT_EQ(session.get(43), Value());
    EXPECT_TRUE(session.host().errors.empty());
}

TEST_F(ExtensionTest, ResultTellsACleanPictureFromAnErrorPictureOrNone) {
    const std::vector<unsigned char> png = session.getBarcode();
    EXPECT_EQ(session.get("Result"), Value(0));
    const VelkoTest::Picture picture = VelkoTest::decodePng(png);
    EXPECT_EQ(picture.width, 150u);
    EXPECT_EQ(picture.height, 100u);
    EXPECT_EQ(VelkoTest::scan(picture, ZXing::BarcodeFormat::EAN13), "1234567890128");

    EXPECT_TRUE(session.set("CodeAuto", false));
    EXPECT_TRUE(session.set("CodeType", 3));
    EXPECT_TRUE(session.set("CodeValue", std::string("lower case")));
    EXPECT_FALSE(session.getBarcode().empty());
    EXPECT_EQ(session.get("Result"), Value(1));

    EXPECT_TRUE(session.set("CodeValue", std::string("UPPER")));
    EXPECT_FALSE(session.getBarcode().empty());
    EXPECT_EQ(session.get("Result"), Value(0));

    // Without memory no picture is delivered.
    ExtensionSession bare(library(), false);
    EXPECT_TRUE(bare.getBarcode().empty());
    EXPECT_EQ(bare.get("Result"), Value(1));
    EXPECT_EQ(bare.get("Font"), Value());
    session.memory().failNextAllocation();
    EXPECT_TRUE(session.getBarcode().empty());
    EXPECT_EQ(session.get("Result"), Value(1));
}

// The logo's Base64 text is taken up to 8 Mi characters, junk between the groups included; a
// longer one, or junk alone, leaves no logo, and a logo is for the next picture only.
TEST_F(ExtensionTest, LogoIsForOnePictureAndJunkOrTooMuchIsNoLogo) {
    const std::string logo = sourceFile("tests/host/logo.b64");
    ASSERT_FALSE(logo.empty());
    session.set("CodeAuto", false);
    session.set("CodeType", 16);
    session.set("Width", 200);
    session.set("Height", 200);
    const auto picture = [&](const std::string& text) {
        EXPECT_TRUE(session.set("LogoImage", text));
        session.set("LogoSizePercentFromBarcode", 30);
        std::vector<unsigned char> png = session.getBarcode();
        EXPECT_EQ(session.get("LogoSizePercentFromBarcode"), Value(0));
        return png;
    };
    const std::vector<unsigned char> plain = picture("");
    EXPECT_EQ(picture("not a picture at all"), plain);
    EXPECT_NE(picture(sized(logo, 8u << 20, '*')), plain);
    EXPECT_EQ(picture(sized(logo, (8u << 20) + 1, '*')), plain);
    EXPECT_TRUE(session.host().errors.empty());
}

// FontAt takes an index within the list; FindFont reads its parameter as a name only when it
// comes as text.
TEST_F(ExtensionTest, MethodsTakeOnlyTheirKindOfParameter) {
    Value first;
    ASSERT_TRUE(session.call(kFontAt, {0}, first));
    ASSERT_TRUE(std::holds_alternative<std::string>(first));
    const Value count = session.get("FontCount");
    ASSERT_TRUE(std::holds_alternative<int>(count));
    const struct {
        long method;
        std::vector<Value> parameters;
        bool answered;
        Value result;
    } cases[] = {
        {kFontAt, {std::get<int>(count)}, false, Value()},
        {kFontAt, {-1}, false, Value()},
        {kFontAt, {}, false, Value()},
        {3, {}, false, Value()},
        {kFindFont, {first}, true, true},
        {kFindFont, {std::string("No Such Font")}, true, false},
        // Once read as a pointer to a name: 5 is no address.
        {kFindFont, {5}, false, Value()},
        {kFindFont, {2.5}, false, Value()},
        {kFindFont, {false}, false, Value()},
        {kFindFont, {Value()}, false, Value()},
    };
    for (const auto& c : cases) {
        Value result;
        EXPECT_EQ(session.call(c.method, c.parameters, result), c.answered) << c.method;
        EXPECT_EQ(result, c.result) << c.method;
    }
}

// A text at its bound is taken; one unit more is answered as the setting answers a bad value,
// with its message where it has one, and leaves the setting as it was; so does a number out
// of range.
TEST_F(ExtensionTest, TextsPastTheirBoundsAreBadValuesAndReported) {
    Value font;
    ASSERT_TRUE(session.call(kFontAt, {0}, font));
    const struct {
        const char* property;
        std::size_t bound;
        std::string head;
        char fill;
        Value atBound;  // read back after the text at the bound; monostate: the text itself
        Value valid;
        bool reported;
    } rows[] = {
        {"Font", 256, "", 'F', std::string("default"), font, true},
        {"AspectRatio", 256, "5:7", ' ', std::string("5:7"), std::string("3:2"), true},
        {"FileName", 4096, "/", 'f', Value(), std::string("label.png"), false},
        {"CodeText", 2u << 20, "", 'T', Value(), std::string("text"), false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.property);
        const std::string atBound = sized(row.head, row.bound, row.fill);
        EXPECT_TRUE(session.set(row.property, atBound));
        EXPECT_EQ(session.get(row.property), std::holds_alternative<std::monostate>(row.atBound)
                                                 ? Value(atBound)
                                                 : row.atBound);
        EXPECT_TRUE(session.set(row.property, row.valid));
        const std::size_t errors = session.host().errors.size();
        EXPECT_FALSE(session.set(row.property, sized(row.head, row.bound + 1, row.fill)));
        EXPECT_EQ(session.host().errors.size(), errors + (row.reported ? 1 : 0));
        EXPECT_EQ(session.get(row.property), row.valid);
    }
    EXPECT_FALSE(session.set("BarAlign", 4));
    EXPECT_EQ(session.get("BarAlign"), Value(2));
    // The core's refusals reach the host as its invalid-argument errors.
    ASSERT_EQ(session.host().errors.size(), 3u);
    for (const auto& error : session.host().errors) {
        EXPECT_EQ(error.code, 1003);
        EXPECT_EQ(VelkoHost::toUtf8(error.source), "VelkoBarCode");
        EXPECT_EQ(static_cast<unsigned long>(error.systemCode) & 0xFFFFFFFFul, 0x80070057ul);
    }
    Value known;
    EXPECT_TRUE(session.call(kFindFont, {sized("", 256, 'F')}, known));
    EXPECT_EQ(known, Value(false));
    EXPECT_FALSE(session.call(kFindFont, {sized("", 257, 'F')}, known));
}

// Whatever the value, every code type answers with a picture and a Result, and the session's
// books stay balanced (checked by the fixture).
TEST_F(ExtensionTest, HostileValuesGiveAPictureInEveryCodeType) {
    const std::string values[] = {
        std::string(3000, '7'), std::string(4000, 'x'), "\x01\x02\x7f", "😀 Привет", "(01)", " ",
    };
    for (int type = 0; type < 25; ++type) {
        ASSERT_TRUE(session.set("CodeAuto", false));
        ASSERT_TRUE(session.set("CodeType", type));
        for (const std::string& value : values) {
            session.set("CodeValue", value);
            const VelkoTest::Picture picture = VelkoTest::decodePng(session.getBarcode());
            EXPECT_GT(picture.width, 0u) << "type " << type;
            const Value result = session.get("Result");
            EXPECT_TRUE(result == Value(0) || result == Value(1)) << "type " << type;
        }
    }
    // The type search meets EAN-128 before QR Code, and EAN-128 can't encode Cyrillic: the
    // write is refused with a host error, and the picture tells of it.
    EXPECT_TRUE(session.set("CodeAuto", true));
    EXPECT_FALSE(session.set("CodeValue", repeated("Ж", 2000)));
    ASSERT_FALSE(session.host().errors.empty());
    EXPECT_EQ(session.host().errors.back().code, 1003);
    EXPECT_FALSE(session.getBarcode().empty());
    EXPECT_EQ(session.get("Result"), Value(1));
}

struct Answer {
    bool written;
    int codeType;
    std::vector<unsigned char> picture;
    std::string codeText;
};

// type -1: the object searches the type itself.
Answer answerTo(int type, const std::string& value, int width = 300) {
    ExtensionSession session(library());
    if (type >= 0) {
        session.set("CodeAuto", false);
        session.set("CodeType", type);
    }
    session.set("Width", width);
    Answer answer;
    answer.written = session.set("CodeValue", value);
    answer.picture = session.getBarcode();
    EXPECT_EQ(std::get<int>(session.get("Result")), 1) << type;
    answer.codeType = std::get<int>(session.get("CodeType"));
    answer.codeText = std::get<std::string>(session.get("CodeText"));
    return answer;
}

// A value one character longer than the longest that a picture can show gets the answer that
// building its tree gave: the symbologies whose symbol grows with the value take it, and their
// picture says it doesn't fit; the others refuse it.
TEST(LongValues, GetTheAnswersTheirTreesGave) {
    ASSERT_TRUE(library().loaded()) << library().error();
    const std::vector<unsigned char> tooSmall = answerTo(4, "ABC", 10).picture;
    const std::vector<unsigned char> invalid = answerTo(1, "ABC").picture;
    ASSERT_NE(tooSmall, invalid);
    const std::string digits(8001, '7');
    const std::string letters(8001, 'A');
    const std::string pairs(8002, '3');
    const std::string codabar = "A" + std::string(8005, '1') + "B";
    const std::string cyrillic = repeated("Ж", 8001);
    const struct {
        int type;
        const std::string& value;
        int codeType;
        const std::vector<unsigned char>& picture;
        bool textIsValue;
    } cases[] = {
        {4, letters, 4, tooSmall, true},
        {3, digits, 3, tooSmall, true},
        {13, codabar, 13, tooSmall, true},
        {13, digits, 13, invalid, false},
        // An odd count of digits with the check digit: Interleaved 2 of 5 takes the value as
        // raw, Standard 2 of 5 not at all.
        {8, pairs, 8, tooSmall, true},
        {7, pairs, 7, invalid, false},
        {4, cyrillic, 4, invalid, false},
        {16, digits, 16, invalid, false},
        {1, digits, 1, invalid, false},
        {20, letters, 20, invalid, false},
        {-1, digits, 2, tooSmall, false},
        {-1, letters, 2, tooSmall, false},
    };
    for (const auto& c : cases) {
        const Answer answer = answerTo(c.type, c.value);
        EXPECT_TRUE(answer.written) << c.type;
        EXPECT_EQ(answer.codeType, c.codeType) << c.type;
        EXPECT_TRUE(answer.picture == c.picture) << c.type << " " << c.codeType;
        if (c.textIsValue) {
            EXPECT_EQ(answer.codeText, c.value) << c.type;
        }
    }
    // Past what the host's text is read to, the answer stays the same.
    const Answer huge = answerTo(4, std::string((1 << 20) + 100, 'A'));
    EXPECT_TRUE(huge.written);
    EXPECT_TRUE(huge.picture == tooSmall);
}

TEST(ExtensionEntryPoints, MakeAndDestroyOnlyWhatTheyShould) {
    ASSERT_TRUE(library().loaded()) << library().error();
    IVelkoExtension* object = nullptr;
    EXPECT_EQ(library().getClassObject(host("Barcode").data(), &object), 0);
    EXPECT_EQ(library().getClassObject(host("").data(), &object), 0);
    EXPECT_EQ(library().getClassObject(nullptr, &object), 0);
    EXPECT_EQ(object, nullptr);
    EXPECT_NE(library().getClassObject(host("CBarcode").data(), &object), 0);
    IVelkoExtension* same = object;
    EXPECT_EQ(library().getClassObject(host("CBarcode").data(), &object),
              reinterpret_cast<long>(same));
    EXPECT_EQ(object, same);
    object->Done();
    object->Done();
    EXPECT_EQ(library().destroyObject(&object), 0);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(library().destroyObject(&object), -1);
    EXPECT_EQ(library().destroyObject(nullptr), -1);
}

}  // namespace
