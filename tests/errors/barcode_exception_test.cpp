#include <gtest/gtest.h>

#include <clocale>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>

#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/text_localizer_state_rus.h"

using namespace BarcodeException;

static_assert(!std::is_base_of_v<std::exception, AbstractBarcodeException>,
              "handlers for std::exception must let these pass");

namespace {

using Factory = std::function<std::unique_ptr<AbstractBarcodeException>()>;

template <class E>
Factory make() {
    return [] { return std::make_unique<E>(); };
}

class BarcodeExceptionTest : public ::testing::Test {
protected:
    void SetUp() override { std::setlocale(LC_ALL, "C"); }
};

}  // namespace

TEST_F(BarcodeExceptionTest, EachClassCarriesItsSystemCode) {
    const struct {
        const char* name;
        Factory make;
        unsigned int code;
    } cases[] = {
        {"base", make<AbstractBarcodeException>(), 0x8007000E},
        {"OutOfMemory", make<OutOfMemory>(), 0x8007000E},
        {"Unexpected", make<Unexpected>(), 0x8000FFFF},
        {"FontWrongValue", make<FontWrongValue>(), 0x80070057},
        {"CodeType2WrongValue", make<CodeType2WrongValue>(), 0x80070057},
        {"ImagickMagickNoInit", make<ImagickMagickNoInit>(), 0x80070057},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.make()->getCode(), c.code) << c.name;
    }
}

TEST_F(BarcodeExceptionTest, BaseHasNoMessageOfItsOwn) {
    AbstractBarcodeException base;
    const TextLocalizerStateRus russian;
    base.fillExceptionInfo(&russian);
    EXPECT_EQ(base.getCode(), 0x8007000Eu);
    EXPECT_TRUE(base.getDescription().empty());
}

TEST_F(BarcodeExceptionTest, CLocaleGivesEnglishMessages) {
    try {
        throw BarAlignWrongValue();
    } catch (const AbstractBarcodeException& e) {
        EXPECT_EQ(e.getCode(), 0x80070057u);
        EXPECT_EQ(e.getDescription(),
                  L"Incorrect value of «BarAlign» property. Allowed values are: 0, 1, 2, 3.");
    }
    EXPECT_EQ(Unexpected().getDescription(),
              L"Unexpected error. Please contact technical support.");
    EXPECT_EQ(CodeType2WrongValue().getDescription(),
              L"Incorrect value of «CodeType» property. Allowed values are: 0, 1, 2, 3, 4, 5, 6, "
              L"7, 8, 9, 10, 11.");
}

TEST_F(BarcodeExceptionTest, RussianStateGivesRussianMessages) {
    const TextLocalizerStateRus russian;
    const struct {
        Factory make;
        const wchar_t* text;
    } cases[] = {
        {make<Unexpected>(),
         L"Неизвестная ошибка. Пожалуйста обратитесь на линию технической поддержки."},
        {make<TextAlignWrongValue>(),
         L"Некорректное значение свойства «ОриентацияТекста». Возможные значения: 0, 1, 2, 3, 4, "
         L"5, 6."},
        {make<AspectRatioWrongValue>(),
         L"Некорректное значение свойства «Пропорции». Возможные значения: строка формата «X:Y», "
         L"где X и Y - положительные целые числа."},
    };
    for (const auto& c : cases) {
        const auto e = c.make();
        const unsigned int code = e->getCode();
        e->fillExceptionInfo(&russian);
        EXPECT_EQ(e->getDescription(), c.text);
        EXPECT_EQ(e->getCode(), code);
    }
}
