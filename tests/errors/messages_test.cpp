#include <gtest/gtest.h>

#include <clocale>
#include <exception>
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

namespace {

using Slot = const wchar_t* (AbstractTextLocalizerState::*)() const;

// English in printable ASCII, Russian with Cyrillic letters, both with no other characters than
// the guillemets around a property's name: the texts reach the program as the code points the
// host shows, whatever the compiler's idea of the source encoding.
bool inLanguage(const std::wstring& text, bool russian) {
    bool cyrillic = false;
    for (wchar_t c : text) {
        const bool letter = c >= L'\u0410' && c <= L'\u0451';
        if (!(c >= 0x20 && c < 0x7F) && c != L'\u00AB' && c != L'\u00BB' && !(russian && letter)) {
            return false;
        }
        cyrillic = cyrillic || letter;
    }
    return !text.empty() && cyrillic == russian;
}

template <class Exception>
void checkMessages(unsigned code, Slot slot) {
    const TextLocalizerStateEng english;
    const TextLocalizerStateRus russian;
    std::setlocale(LC_ALL, "C");
    Exception exception;
    EXPECT_EQ(exception.getCode(), code);
    EXPECT_EQ(exception.getDescription(), (english.*slot)());
    EXPECT_TRUE(inLanguage(exception.getDescription(), false));
    exception.fillExceptionInfo(&russian);
    EXPECT_EQ(exception.getDescription(), (russian.*slot)());
    EXPECT_TRUE(inLanguage(exception.getDescription(), true));
    EXPECT_EQ(exception.getCode(), code);
}

}  // namespace

TEST(BarcodeExceptions, EachCarriesItsSystemCodeAndItsSlotInEitherLanguage) {
    using S = AbstractTextLocalizerState;
    checkMessages<OutOfMemory>(0x8007000E, &S::eiOutOfMemory);
    checkMessages<Unexpected>(0x8000FFFF, &S::eiUnexpected);
    checkMessages<FontWrongValue>(0x80070057, &S::eiFontWrongValue);
    checkMessages<TextAlignWrongValue>(0x80070057, &S::eiTextAlignWrongValue);
    checkMessages<TextPositionWrongValue>(0x80070057, &S::eiTextPositionWrongValue);
    checkMessages<CodeType2WrongValue>(0x80070057, &S::eiCodeType2WrongValue);
    checkMessages<ECLWrongValue>(0x80070057, &S::eiECLWrongValue);
    checkMessages<ImagickMagickNoInit>(0x80070057, &S::eiImagickMagickNoInit);
    // The base class has a code but no message of its own, in any language.
    AbstractBarcodeException base;
    const TextLocalizerStateRus russian;
    base.fillExceptionInfo(&russian);
    EXPECT_EQ(base.getCode(), 0x8007000Eu);
    EXPECT_TRUE(base.getDescription().empty());
}

namespace {

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
