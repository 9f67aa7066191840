#include <gtest/gtest.h>

#include <clocale>
#include <exception>
#include <memory>
#include <string>
#include <type_traits>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/errors/message_table.h"
#include "BarcodeLib/errors/text_localizer.h"
#include "BarcodeLib/errors/text_localizer_state_eng.h"
#include "BarcodeLib/errors/text_localizer_state_rus.h"

using namespace BarcodeException;

static_assert(!std::is_base_of_v<std::exception, AbstractBarcodeException>,
              "handlers for std::exception must let these pass");

class BarcodeExceptionTest : public ::testing::Test {
protected:
    void SetUp() override { std::setlocale(LC_ALL, "C"); }
};

TEST_F(BarcodeExceptionTest, EachClassCarriesItsSystemCode) {
    EXPECT_EQ(OutOfMemory().getCode(), 0x8007000Eu);
    EXPECT_EQ(Unexpected().getCode(), 0x8000FFFFu);
    EXPECT_EQ(FontWrongValue().getCode(), 0x80070057u);
    EXPECT_EQ(CodeType2WrongValue().getCode(), 0x80070057u);
    EXPECT_EQ(ImagickMagickNoInit().getCode(), 0x80070057u);
    // The base class has a code but no message of its own, in any language.
    AbstractBarcodeException base;
    const TextLocalizerStateRus russian;
    base.fillExceptionInfo(&russian);
    EXPECT_EQ(base.getCode(), 0x8007000Eu);
    EXPECT_TRUE(base.getDescription().empty());
}

TEST_F(BarcodeExceptionTest, CLocaleGivesEnglishMessages) {
    EXPECT_EQ(Unexpected().getDescription(),
              L"Unexpected error. Please contact technical support.");
    EXPECT_EQ(CodeType2WrongValue().getDescription(),
              L"Incorrect value of «CodeType» property. Allowed values are: 0, 1, 2, 3, 4, 5, 6, "
              L"7, 8, 9, 10, 11.");
}

TEST_F(BarcodeExceptionTest, RussianStateGivesRussianMessages) {
    const TextLocalizerStateRus russian;
    const struct {
        std::unique_ptr<AbstractBarcodeException> exception;
        const wchar_t* text;
    } cases[] = {
        {std::make_unique<Unexpected>(),
         L"Неизвестная ошибка. Пожалуйста обратитесь на линию технической поддержки."},
        {std::make_unique<TextAlignWrongValue>(),
         L"Некорректное значение свойства «ОриентацияТекста». Возможные значения: 0, 1, 2, 3, 4, "
         L"5, 6."},
    };
    for (const auto& c : cases) {
        const unsigned code = c.exception->getCode();
        c.exception->fillExceptionInfo(&russian);
        EXPECT_EQ(c.exception->getDescription(), c.text);
        EXPECT_EQ(c.exception->getCode(), code);
    }
}

namespace {

using Slot = const wchar_t* (AbstractTextLocalizerState::*)() const;

bool isEnglish(const AbstractTextLocalizerState* state) {
    return dynamic_cast<const TextLocalizerStateEng*>(state) != nullptr;
}

bool isRussian(const AbstractTextLocalizerState* state) {
    return dynamic_cast<const TextLocalizerStateRus*>(state) != nullptr;
}

}  // namespace

TEST(TextLocalizer, OnlyRussianRussiaLocaleNamesGiveRussian) {
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(get_current_lcid(), 1033u);
    EXPECT_TRUE(isEnglish(get_localizer_state()));
    for (const char* name : {"Russian_Russia.1251", "russian_russia", "RUSSIAN_RUSSIA.UTF-8"}) {
        EXPECT_EQ(lcid_for_locale_name(name), 0u) << name;
    }
    for (const char* name : {"C", "ru_RU.UTF-8", "Russian_Russ", "Russian_Belarus.1251",
                             "LC_CTYPE=Russian_Russia.1251;LC_NUMERIC=C", ""}) {
        EXPECT_EQ(lcid_for_locale_name(name), 1033u) << name;
    }
    EXPECT_EQ(lcid_for_locale_name(nullptr), 1033u);
}

TEST(TextLocalizer, PrimaryLanguageNineIsEnglishAndAllElseRussian) {
    TextLocalizer localizer(1049);
    ASSERT_TRUE(isRussian(localizer.getState()));
    // Switch back and forth on one localizer: each call replaces the state.
    const struct {
        unsigned long lcid;
        bool english;
    } cases[] = {
        {1033, true},  {1049, false},   {2057, true},   {0, false},     {3081, true},
        {1031, false}, {0x10409, true}, {0x2809, true}, {0x209, false},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(localizer.setLCID(c.lcid));
        EXPECT_EQ(isEnglish(localizer.getState()), c.english) << c.lcid;
        EXPECT_EQ(isRussian(localizer.getState()), !c.english) << c.lcid;
    }
}

TEST(TextLocalizerStates, SlotsAnswerTheirOwnMessages) {
    const struct {
        Slot slot;
        const wchar_t* english;
        const wchar_t* russian;
    } cases[] = {
        {&AbstractTextLocalizerState::eiOutOfMemory, L"Out of memory.", L"Недостаточно памяти."},
        {&AbstractTextLocalizerState::eiImagickMagickNoInit, L"Unable to initialize fonts. ",
         L"Невозможно инициализировать работу со шрифтами."},
        {&AbstractTextLocalizerState::eiTextPositionWrongValue,
         L"Incorrect value of «TextPosition» property. Allowed values are: 0, 1.",
         L"Некорректное значение свойства «ПоложениеТекста». Возможные значения: 0, 1."},
        {&AbstractTextLocalizerState::eiECLWrongValue,
         L"Incorrect value of «ECL» property. Allowed values are: non-negative integers.",
         L"Некорректное значение свойства «УровеньКоррекции». Возможные значения: "
         L"неотрицательные целые числа."},
    };
    const TextLocalizerStateEng english;
    const TextLocalizerStateRus russian;
    for (const auto& c : cases) {
        EXPECT_EQ(std::wstring((english.*c.slot)()), c.english);
        EXPECT_EQ(std::wstring((russian.*c.slot)()), c.russian);
    }
}

// The literals must reach the program as the code points the host shows, whatever the
// compiler's idea of the source encoding.
TEST(TextLocalizerStates, TextsCarryTheirCodePoints) {
    const std::wstring english = TextLocalizerStateEng().eiFontWrongValue();
    EXPECT_EQ(english, L"Incorrect value of \u00ABFont\u00BB property.");
    const std::wstring russian = TextLocalizerStateRus().eiFontWrongValue();
    EXPECT_EQ(russian.substr(0, 4), L"\u041D\u0435\u043A\u043E");
    EXPECT_EQ(russian.substr(russian.size() - 8), L"\u00AB\u0428\u0440\u0438\u0444\u0442\u00BB.");
}

TEST(MessageTable, LookupBySlotGivesNameAndBothTexts) {
    EXPECT_EQ(kMessageSlotCount, 95u);
    const struct {
        MessageSlot slot;
        const char* name;
        const wchar_t* english;
        const wchar_t* russian;
    } cases[] = {
        {MessageSlot::catnameMain, "catnameMain", L"Main", L"Основные"},
        {MessageSlot::code39Ext, "code39Ext", L"Extended Code39", L"Расширение Code39"},
        {MessageSlot::eiImagickMagickNoInit, "eiImagickMagickNoInit",
         L"Unable to initialize fonts. ", L"Невозможно инициализировать работу со шрифтами."},
    };
    for (const auto& c : cases) {
        const MessageRow& row = message_row(c.slot);
        EXPECT_EQ(row.slot, c.slot);
        EXPECT_STREQ(row.name, c.name);
        EXPECT_EQ(std::wstring(row.english), c.english);
        EXPECT_EQ(std::wstring(row.russian), c.russian);
    }
}
