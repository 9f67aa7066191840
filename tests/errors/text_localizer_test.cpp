#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <vector>

#include "BarcodeLib/text_localizer.h"
#include "BarcodeLib/text_localizer_state_eng.h"
#include "BarcodeLib/text_localizer_state_rus.h"

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
    const struct {
        const char* name;
        unsigned long lcid;
    } cases[] = {
        {"Russian_Russia.1251", 0},
        {"russian_russia", 0},
        {"RUSSIAN_RUSSIA.UTF-8", 0},
        {"rUsSiAn_RuSsIa.866", 0},
        {"C", 1033},
        {"POSIX", 1033},
        {"ru_RU.UTF-8", 1033},
        {"Russian", 1033},
        {"Russian_Russ", 1033},
        {"Russian_Belarus.1251", 1033},
        {"LC_CTYPE=Russian_Russia.1251;LC_NUMERIC=C", 1033},
        {"", 1033},
        {nullptr, 1033},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(lcid_for_locale_name(c.name), c.lcid) << (c.name ? c.name : "(null)");
    }
}

TEST(TextLocalizer, ProcessLocaleCGivesEnglish) {
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(get_current_lcid(), 1033u);
    EXPECT_TRUE(isEnglish(get_localizer_state()));
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

TEST(TextLocalizerStates, SlotsAnswerTheirOwnCaptions) {
    const struct {
        Slot slot;
        const wchar_t* english;
        const wchar_t* russian;
    } cases[] = {
        {&AbstractTextLocalizerState::catnameMain, L"Main", L"Основные"},
        {&AbstractTextLocalizerState::center, L"Center", L"По центру"},
        {&AbstractTextLocalizerState::full, L"Full", L"Растянуть"},
        {&AbstractTextLocalizerState::ean1, L"EAN1", L"EAN1"},
        {&AbstractTextLocalizerState::rotate90, L"90°", L"90°"},
        {&AbstractTextLocalizerState::code39Ext, L"Extended Code39", L"Расширение Code39"},
        {&AbstractTextLocalizerState::standard2of5, L"Standard (Industrial) 2 of 5",
         L"Standard (Industrial) 2 of 5"},
        {&AbstractTextLocalizerState::barAlignNone, L"No auto alignmemt", L"Не выравнивать"},
        {&AbstractTextLocalizerState::proppageCodeRawValue, L"Raw value",
         L"Содержит контрольный символ"},
        {&AbstractTextLocalizerState::proppageCodeSentinel, L"Sentinel height",
         L"Высота разделителей"},
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
    const AbstractTextLocalizerState& englishState = english;
    const AbstractTextLocalizerState& russianState = russian;
    for (const auto& c : cases) {
        EXPECT_EQ(std::wstring((englishState.*c.slot)()), c.english);
        EXPECT_EQ(std::wstring((russianState.*c.slot)()), c.russian);
    }
}

TEST(TextLocalizerStates, SymbologyNamesAreTheSameInBothLanguages) {
    const std::vector<Slot> symbologies = {
        &AbstractTextLocalizerState::ean8,        &AbstractTextLocalizerState::ean13,
        &AbstractTextLocalizerState::ean128,      &AbstractTextLocalizerState::code39,
        &AbstractTextLocalizerState::code128,     &AbstractTextLocalizerState::code16k,
        &AbstractTextLocalizerState::pdf417,      &AbstractTextLocalizerState::interleaved2of5,
        &AbstractTextLocalizerState::code93,      &AbstractTextLocalizerState::itf14,
        &AbstractTextLocalizerState::rss14,       &AbstractTextLocalizerState::codaBar,
        &AbstractTextLocalizerState::ean13AddOn2, &AbstractTextLocalizerState::ean13AddOn5,
        &AbstractTextLocalizerState::qr,
    };
    const TextLocalizerStateEng english;
    const TextLocalizerStateRus russian;
    for (Slot slot : symbologies) {
        const std::wstring name = (english.*slot)();
        EXPECT_FALSE(name.empty());
        EXPECT_EQ(name, (russian.*slot)());
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
