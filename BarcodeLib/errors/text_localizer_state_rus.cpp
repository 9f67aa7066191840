#include "BarcodeLib/errors/text_localizer_state_rus.h"

const wchar_t* TextLocalizerStateRus::catnameMain() const {
    return L"Основные";
}
const wchar_t* TextLocalizerStateRus::catnameDecoration() const {
    return L"Оформление";
}
const wchar_t* TextLocalizerStateRus::yes() const {
    return L"Да";
}
const wchar_t* TextLocalizerStateRus::no() const {
    return L"Нет";
}
const wchar_t* TextLocalizerStateRus::center() const {
    return L"По центру";
}
const wchar_t* TextLocalizerStateRus::left() const {
    return L"Слева";
}
const wchar_t* TextLocalizerStateRus::right() const {
    return L"Справа";
}
const wchar_t* TextLocalizerStateRus::full() const {
    return L"Растянуть";
}
const wchar_t* TextLocalizerStateRus::ean1() const {
    return L"EAN1";
}
const wchar_t* TextLocalizerStateRus::ean2() const {
    return L"EAN2";
}
const wchar_t* TextLocalizerStateRus::ean3() const {
    return L"EAN3";
}
const wchar_t* TextLocalizerStateRus::bottom() const {
    return L"Снизу";
}
const wchar_t* TextLocalizerStateRus::top() const {
    return L"Сверху";
}
const wchar_t* TextLocalizerStateRus::rotate0() const {
    return L"0°";
}
const wchar_t* TextLocalizerStateRus::rotate90() const {
    return L"90°";
}
const wchar_t* TextLocalizerStateRus::rotate180() const {
    return L"180°";
}
const wchar_t* TextLocalizerStateRus::rotate270() const {
    return L"270°";
}
const wchar_t* TextLocalizerStateRus::ean8() const {
    return L"EAN-8";
}
const wchar_t* TextLocalizerStateRus::ean13() const {
    return L"EAN-13";
}
const wchar_t* TextLocalizerStateRus::ean128() const {
    return L"EAN-128";
}
const wchar_t* TextLocalizerStateRus::code39() const {
    return L"Code39";
}
const wchar_t* TextLocalizerStateRus::code128() const {
    return L"Code128";
}
const wchar_t* TextLocalizerStateRus::code16k() const {
    return L"Code16K";
}
const wchar_t* TextLocalizerStateRus::pdf417() const {
    return L"PDF417";
}
const wchar_t* TextLocalizerStateRus::standard2of5() const {
    return L"Standard (Industrial) 2 of 5";
}
const wchar_t* TextLocalizerStateRus::interleaved2of5() const {
    return L"Interleaved 2 of 5";
}
const wchar_t* TextLocalizerStateRus::code39Ext() const {
    return L"Расширение Code39";
}
const wchar_t* TextLocalizerStateRus::code93() const {
    return L"Code93";
}
const wchar_t* TextLocalizerStateRus::itf14() const {
    return L"ITF-14";
}
const wchar_t* TextLocalizerStateRus::rss14() const {
    return L"RSS-14";
}
const wchar_t* TextLocalizerStateRus::codaBar() const {
    return L"Codabar";
}
const wchar_t* TextLocalizerStateRus::ean13AddOn2() const {
    return L"EAN-13 + 2";
}
const wchar_t* TextLocalizerStateRus::ean13AddOn5() const {
    return L"EAN-13 + 5";
}
const wchar_t* TextLocalizerStateRus::qr() const {
    return L"QR Code";
}
const wchar_t* TextLocalizerStateRus::internalError() const {
    return L"Внутренняя ошибка.";
}
const wchar_t* TextLocalizerStateRus::outOfMemory() const {
    return L"Недостаточно памяти.";
}
const wchar_t* TextLocalizerStateRus::pointer() const {
    return L"Неверный указатель.";
}
const wchar_t* TextLocalizerStateRus::wrongValue() const {
    return L"Неверное значение.";
}
const wchar_t* TextLocalizerStateRus::proppageParentTitle() const {
    return L"Штрихкод";
}
const wchar_t* TextLocalizerStateRus::barAlignNone() const {
    return L"Не выравнивать";
}
const wchar_t* TextLocalizerStateRus::barAlignLeft() const {
    return L"По левому краю";
}
const wchar_t* TextLocalizerStateRus::barAlignCenter() const {
    return L"По центру";
}
const wchar_t* TextLocalizerStateRus::barAlignRight() const {
    return L"По правому краю";
}
const wchar_t* TextLocalizerStateRus::proppageBarColor() const {
    return L"Цвет полос";
}
const wchar_t* TextLocalizerStateRus::proppageBgColor() const {
    return L"Цвет фона";
}
const wchar_t* TextLocalizerStateRus::proppageFont() const {
    return L"Шрифт";
}
const wchar_t* TextLocalizerStateRus::proppageBgTransparent() const {
    return L"Прозрачный фон";
}
const wchar_t* TextLocalizerStateRus::proppageCanvasRotation() const {
    return L"Угол поворота";
}
const wchar_t* TextLocalizerStateRus::proppageCanvasMargin() const {
    return L"Размер края";
}
const wchar_t* TextLocalizerStateRus::proppageTextAlign() const {
    return L"Ориентация текста";
}
const wchar_t* TextLocalizerStateRus::proppageCanvasXOffset() const {
    return L"Горизонтальное смещение";
}
const wchar_t* TextLocalizerStateRus::proppageTextPosition() const {
    return L"Положение текста";
}
const wchar_t* TextLocalizerStateRus::proppageCanvasYOffset() const {
    return L"Вертикальное смещение";
}
const wchar_t* TextLocalizerStateRus::proppageTextVisible() const {
    return L"Отображать текст";
}
const wchar_t* TextLocalizerStateRus::proppageAspectRatio() const {
    return L"Пропорции";
}
const wchar_t* TextLocalizerStateRus::proppageCodeType() const {
    return L"Тип кода";
}
const wchar_t* TextLocalizerStateRus::proppageCodeValue() const {
    return L"Значение";
}
const wchar_t* TextLocalizerStateRus::proppageCodeAuto() const {
    return L"Определять тип кода";
}
const wchar_t* TextLocalizerStateRus::proppageCodeCS() const {
    return L"Контрольный символ";
}
const wchar_t* TextLocalizerStateRus::proppageCodeRawValue() const {
    return L"Содержит контрольный символ";
}
const wchar_t* TextLocalizerStateRus::proppageCodeText() const {
    return L"Текст";
}
const wchar_t* TextLocalizerStateRus::proppageCodeShowCS() const {
    return L"Показывать контрольный символ";
}
const wchar_t* TextLocalizerStateRus::proppageCodeSentinel() const {
    return L"Высота разделителей";
}
const wchar_t* TextLocalizerStateRus::proppageCodeMinHeight() const {
    return L"Минимальная высота";
}
const wchar_t* TextLocalizerStateRus::proppageCodeMinWidth() const {
    return L"Минимальная ширина";
}
const wchar_t* TextLocalizerStateRus::proppageColumnCount() const {
    return L"Количество столбцов";
}
const wchar_t* TextLocalizerStateRus::proppageRowCount() const {
    return L"Количество строк";
}
const wchar_t* TextLocalizerStateRus::proppageECL() const {
    return L"Уровень коррекции";
}
const wchar_t* TextLocalizerStateRus::proppageBarAlign() const {
    return L"Выравнивание кода";
}
const wchar_t* TextLocalizerStateRus::eiOutOfMemory() const {
    return L"Недостаточно памяти.";
}
const wchar_t* TextLocalizerStateRus::eiUnexpected() const {
    return L"Неизвестная ошибка. Пожалуйста обратитесь на линию технической поддержки.";
}
const wchar_t* TextLocalizerStateRus::eiCanvasRotationWrongValue() const {
    return L"Некорректное значение свойства «УголПоворота». Возможные значения: 0, 90, 180, 270.";
}
const wchar_t* TextLocalizerStateRus::eiTextAlignWrongValue() const {
    return L"Некорректное значение свойства «ОриентацияТекста». Возможные значения: 0, 1, 2, 3, 4, "
           L"5, 6.";
}
const wchar_t* TextLocalizerStateRus::eiTextPositionWrongValue() const {
    return L"Некорректное значение свойства «ПоложениеТекста». Возможные значения: 0, 1.";
}
const wchar_t* TextLocalizerStateRus::eiBarAlignWrongValue() const {
    return L"Некорректное значение свойства «ВыравниваниеКода». Возможные значения: 0, 1, 2, 3.";
}
const wchar_t* TextLocalizerStateRus::eiFontWrongValue() const {
    return L"Некорректное значение свойства «Шрифт».";
}
const wchar_t* TextLocalizerStateRus::eiTextColorWrongValue() const {
    return L"Некорректное значение свойства «ЦветТекста».";
}
const wchar_t* TextLocalizerStateRus::eiTextVisibleWrongValue() const {
    return L"Некорректное значение свойства «ОтображатьТекст». Возможные значения: Ложь, Истина.";
}
const wchar_t* TextLocalizerStateRus::eiBgColorWrongValue() const {
    return L"Некорректное значение свойства «ЦветФона».";
}
const wchar_t* TextLocalizerStateRus::eiBgTransparentWrongValue() const {
    return L"Некорректное значение свойства «ПрозрачныйФон». Возможные значения: Ложь, Истина.";
}
const wchar_t* TextLocalizerStateRus::eiBarColorWrongValue() const {
    return L"Некорректное значение свойства «ЦветПолос».";
}
const wchar_t* TextLocalizerStateRus::eiCanvasXOffsetWrongValue() const {
    return L"Некорректное значение свойства «ГорСмещение». Возможные значения: неотрицательные "
           L"числа.";
}
const wchar_t* TextLocalizerStateRus::eiCanvasYOffsetWrongValue() const {
    return L"Некорректное значение свойства «ВертСмещение». Возможные значения: неотрицательные "
           L"числа.";
}
const wchar_t* TextLocalizerStateRus::eiCanvasMarginWrongValue() const {
    return L"Некорректное значение свойства «РазмерКрая». Возможные значения: неотрицательные "
           L"числа.";
}
const wchar_t* TextLocalizerStateRus::eiCodeType1WrongValue() const {
    return L"Некорректное значение свойства «ТипКода». Возможные значения: 0, 1, 2, 3, 4, 5.";
}
const wchar_t* TextLocalizerStateRus::eiCodeType2WrongValue() const {
    return L"Некорректное значение свойства «ТипКода». Возможные значения: 0, 1, 2, 3, 4, 5, 6, 7, "
           L"8, 9, 10, 11.";
}
const wchar_t* TextLocalizerStateRus::eiCodeAutoWrongValue() const {
    return L"Некорректное значение свойства «АвтоТип». Возможные значения: Ложь, Истина.";
}
const wchar_t* TextLocalizerStateRus::eiCodeIsRawWrongValue() const {
    return L"Некорректное значение свойства «СодержитКС». Возможные значения: Ложь, Истина.";
}
const wchar_t* TextLocalizerStateRus::eiCodeShowCSWrongValue() const {
    return L"Некорректное значение свойства «ВидимостьКС». Возможные значения: Ложь, Истина.";
}
const wchar_t* TextLocalizerStateRus::eiCodeSentinelWrongValue() const {
    return L"Некорректное значение свойства «Разделители». Возможные значения: целые числа в "
           L"диапазоне 0 - 100.";
}
const wchar_t* TextLocalizerStateRus::eiColumnCountWrongValue() const {
    return L"Некорректное значение свойства «КоличествоСтолбцов». Возможные значения: "
           L"неотрицательные целые числа.";
}
const wchar_t* TextLocalizerStateRus::eiRowCountWrongValue() const {
    return L"Некорректное значение свойства «КоличествоСтрок». Возможные значения: неотрицательные "
           L"целые числа.";
}
const wchar_t* TextLocalizerStateRus::eiAspectRatioWrongValue() const {
    return L"Некорректное значение свойства «Пропорции». Возможные значения: строка формата «X:Y», "
           L"где X и Y - положительные целые числа.";
}
const wchar_t* TextLocalizerStateRus::eiECLWrongValue() const {
    return L"Некорректное значение свойства «УровеньКоррекции». Возможные значения: "
           L"неотрицательные целые числа.";
}
const wchar_t* TextLocalizerStateRus::eiImagickMagickNoInit() const {
    return L"Невозможно инициализировать работу со шрифтами.";
}
