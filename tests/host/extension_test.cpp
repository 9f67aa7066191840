#include <gtest/gtest.h>

#include <ZXing/BarcodeFormat.h>

#include <clocale>
#include <cstring>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
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

TEST_F(ExtensionTest, RegistersAndCountsItsTables) {
    EXPECT_EQ(session.registeredName(), "Barcode");
    EXPECT_EQ(object().GetNProps(), 43);
    EXPECT_EQ(object().GetNMethods(), 3);
    EXPECT_EQ(object().GetInfo(), 2004);
    EXPECT_EQ(library().setPlatformCapabilities(0), 1);
    EXPECT_EQ(VelkoHost::toUtf8(VelkoHost::fromHostString(library().getClassNames())), "CBarcode");
}

TEST_F(ExtensionTest, FindsNamesInBothLanguagesCaseSensitively) {
    struct Case {
        const char* name;
        long prop;
        long method;
    } cases[] = {
        {"ЦветФона", 6, -1},   {"bgcolor", -1, -1},    {"GetBarcode", -1, 0},
        {"НайтиШрифт", -1, 2}, {"getbarcode", -1, -1},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(object().FindProp(host(c.name).data()), c.prop) << c.name;
        EXPECT_EQ(object().FindMethod(host(c.name).data()), c.method) << c.name;
    }
}

TEST_F(ExtensionTest, NamesComeInHostMemoryOrNotAtAll) {
    const unsigned short* name = object().GetPropName(1, 1);
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(VelkoHost::toUtf8(VelkoHost::fromHostString(name)), "РазмерШрифта");
    EXPECT_TRUE(session.memory().intact(name));
    EXPECT_TRUE(session.memory().release(name));
    const unsigned short* method = object().GetMethodName(1, 0);
    ASSERT_NE(method, nullptr);
    EXPECT_EQ(VelkoHost::toUtf8(VelkoHost::fromHostString(method)), "FontAt");
    EXPECT_TRUE(session.memory().release(method));
    EXPECT_EQ(object().GetPropName(43, 0), nullptr);
    EXPECT_EQ(object().GetPropName(0, 2), nullptr);
    EXPECT_EQ(object().GetMethodName(3, 0), nullptr);
    session.memory().failNextAllocation();
    EXPECT_EQ(object().GetPropName(0, 0), nullptr);
}

TEST_F(ExtensionTest, ReadableAndWritableTables) {
    for (long i = -1; i <= 44; ++i) {
        const bool readable = i != 18 && i != 41;
        const bool writable =
            !(i == 19 || i == 20 || i == 22 || i == 23 || i == 29 || i == 30 || i == 33 || i == 39);
        EXPECT_EQ(object().IsPropReadable(i), readable) << i;
        EXPECT_EQ(object().IsPropWritable(i), writable) << i;
    }
    for (long method = 0; method < 4; ++method) {
        EXPECT_EQ(object().HasRetVal(method), method < 3);
        EXPECT_EQ(object().GetNParams(method), method == 1 || method == 2 ? 1 : 0);
        EXPECT_FALSE(object().CallAsProc(method, nullptr, 0));
    }
}

// Every property by its index: both names lead back to it, and a value of its kind written
// through the host reads back as the facade keeps it. An empty read: not readable; an integer
// read of -1: readable, with a value that depends on the symbol or the system.
TEST_F(ExtensionTest, EveryPropertyByItsNamesAndKind) {
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
    ASSERT_EQ(std::size(properties), static_cast<size_t>(object().GetNProps()));
    for (long index = 0; index < object().GetNProps(); ++index) {
        const auto& p = properties[index];
        SCOPED_TRACE(p.english);
        for (long alias = 0; alias < 2; ++alias) {
            const unsigned short* name = object().GetPropName(index, alias);
            ASSERT_NE(name, nullptr);
            EXPECT_EQ(VelkoHost::toUtf8(VelkoHost::fromHostString(name)),
                      alias == 0 ? p.english : p.russian);
            EXPECT_EQ(object().FindProp(name), index);
            session.memory().release(name);
        }
        const bool writable = object().IsPropWritable(index);
        EXPECT_EQ(session.set(index, p.written), writable || index == 20);
        const Value read = session.get(index);
        if (p.read == Value(-1)) {
            EXPECT_TRUE(std::holds_alternative<int>(read));
        } else {
            EXPECT_EQ(read, p.read);
        }
        EXPECT_EQ(object().IsPropReadable(index), p.read != Value());
    }
    EXPECT_TRUE(session.host().errors.empty());
}

// The reference for host developers names every property and method in both languages.
TEST_F(ExtensionTest, ReferenceNamesEveryPropertyAndMethod) {
    std::ifstream file(std::string(std::getenv("VELKO_SOURCE_DIR")) + "/docs/properties.md");
    const std::string reference((std::istreambuf_iterator<char>(file)),
                                std::istreambuf_iterator<char>());
    ASSERT_FALSE(reference.empty());
    const auto named = [&](const unsigned short* name) {
        const std::string text = VelkoHost::toUtf8(VelkoHost::fromHostString(name));
        session.memory().release(name);
        return reference.find("`" + text + "`") != std::string::npos ? "" : text;
    };
    for (long alias = 0; alias < 2; ++alias) {
        for (long index = 0; index < object().GetNProps(); ++index) {
            EXPECT_EQ(named(object().GetPropName(index, alias)), "");
        }
        for (long index = 0; index < object().GetNMethods(); ++index) {
            EXPECT_EQ(named(object().GetMethodName(index, alias)), "");
        }
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

TEST_F(ExtensionTest, CoreExceptionsBecomeHostErrors) {
    std::setlocale(LC_ALL, "C");
    EXPECT_FALSE(session.set("BarAlign", 4));
    EXPECT_FALSE(session.set("AspectRatio", std::string("wide")));
    ASSERT_EQ(session.host().errors.size(), 2u);
    for (const auto& error : session.host().errors) {
        EXPECT_EQ(error.code, 1003);
        EXPECT_EQ(VelkoHost::toUtf8(error.source), "VelkoBarCode");
        EXPECT_EQ(static_cast<unsigned long>(error.systemCode) & 0xFFFFFFFFul, 0x80070057ul);
    }
    EXPECT_EQ(VelkoHost::toUtf8(session.host().errors[0].description),
              "Incorrect value of «BarAlign» property. Allowed values are: 0, 1, 2, 3.");
    EXPECT_EQ(session.get("BarAlign"), Value(2));
    EXPECT_EQ(session.get("AspectRatio"), Value(std::string("1:4")));
}

TEST_F(ExtensionTest, CleanPictureScansAndErrorPictureSetsResult) {
    const std::vector<unsigned char> png = session.getBarcode();
    EXPECT_EQ(session.get("Result"), Value(0));
    const VelkoTest::Picture picture = VelkoTest::decodePng(png);
    EXPECT_EQ(picture.width, 150u);
    EXPECT_EQ(picture.height, 100u);
    EXPECT_EQ(VelkoTest::scan(picture, ZXing::BarcodeFormat::EAN13), "1234567890128");

    EXPECT_TRUE(session.set("CodeAuto", false));
    EXPECT_TRUE(session.set("CodeType", 3));
    EXPECT_TRUE(session.set("CodeValue", std::string("lower case")));
    const VelkoTest::Picture error = VelkoTest::decodePng(session.getBarcode());
    EXPECT_EQ(session.get("Result"), Value(1));
    EXPECT_EQ(error.width, 200u);
    EXPECT_EQ(error.height, 100u);

    EXPECT_TRUE(session.set("CodeValue", std::string("UPPER")));
    EXPECT_FALSE(session.getBarcode().empty());
    EXPECT_EQ(session.get("Result"), Value(0));
}

TEST_F(ExtensionTest, WithoutMemoryNoPictureIsDelivered) {
    ExtensionSession bare(library(), false);
    EXPECT_TRUE(bare.getBarcode().empty());
    EXPECT_EQ(bare.get("Result"), Value(1));
    EXPECT_EQ(bare.get("Font"), Value());
    session.memory().failNextAllocation();
    EXPECT_TRUE(session.getBarcode().empty());
    EXPECT_EQ(session.get("Result"), Value(1));
}

TEST_F(ExtensionTest, LogoIsForOnePictureAndJunkIsNoLogo) {
    EXPECT_TRUE(session.set("LogoImage", std::string("not a picture at all")));
    EXPECT_TRUE(session.set("LogoImage", std::string("")));
    std::ifstream file(std::string(std::getenv("VELKO_SOURCE_DIR")) + "/tests/host/logo.b64");
    const std::string logo((std::istreambuf_iterator<char>(file)),
                           std::istreambuf_iterator<char>());
    ASSERT_FALSE(logo.empty());
    EXPECT_TRUE(session.set("LogoImage", logo));
    EXPECT_TRUE(session.set("LogoSizePercentFromBarcode", 20));
    session.getBarcode();
    EXPECT_EQ(session.get("LogoSizePercentFromBarcode"), Value(0));
}

// FindFont's answers: tests/limits/host_limits_test.cpp.
TEST_F(ExtensionTest, FontAtRefusesIndicesOutsideTheList) {
    Value name;
    const Value count = session.get("FontCount");
    ASSERT_TRUE(std::holds_alternative<int>(count));
    EXPECT_FALSE(session.call(1, {std::get<int>(count)}, name));
    EXPECT_FALSE(session.call(1, {-1}, name));
    EXPECT_FALSE(session.call(1, {}, name));
    EXPECT_FALSE(session.call(3, {}, name));
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
    std::string tooLong;
    for (int i = 0; i < 2000; ++i) {
        tooLong += "Ж";
    }
    EXPECT_FALSE(session.set("CodeValue", tooLong));
    ASSERT_FALSE(session.host().errors.empty());
    EXPECT_EQ(session.host().errors.back().code, 1003);
    EXPECT_FALSE(session.getBarcode().empty());
    EXPECT_EQ(session.get("Result"), Value(1));
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
