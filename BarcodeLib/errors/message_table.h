#pragma once

#include <cstddef>

// Every caption and message of the core in both languages, one row per slot: the slot's name,
// the English text, the Russian text. The order of the rows is the slot order.
// clang-format off
#define VELKO_MESSAGE_TABLE(ROW) \
    ROW(catnameMain, L"Main", L"Основные") \
    ROW(catnameDecoration, L"Decoration", L"Оформление") \
    ROW(yes, L"Yes", L"Да") \
    ROW(no, L"No", L"Нет") \
    ROW(center, L"Center", L"По центру") \
    ROW(left, L"Left", L"Слева") \
    ROW(right, L"Right", L"Справа") \
    ROW(full, L"Full", L"Растянуть") \
    ROW(ean1, L"EAN1", L"EAN1") \
    ROW(ean2, L"EAN2", L"EAN2") \
    ROW(ean3, L"EAN3", L"EAN3") \
    ROW(bottom, L"Bottom", L"Снизу") \
    ROW(top, L"Top", L"Сверху") \
    ROW(rotate0, L"0°", L"0°") \
    ROW(rotate90, L"90°", L"90°") \
    ROW(rotate180, L"180°", L"180°") \
    ROW(rotate270, L"270°", L"270°") \
    ROW(ean8, L"EAN-8", L"EAN-8") \
    ROW(ean13, L"EAN-13", L"EAN-13") \
    ROW(ean128, L"EAN-128", L"EAN-128") \
    ROW(code39, L"Code39", L"Code39") \
    ROW(code128, L"Code128", L"Code128") \
    ROW(code16k, L"Code16K", L"Code16K") \
    ROW(pdf417, L"PDF417", L"PDF417") \
    ROW(standard2of5, L"Standard (Industrial) 2 of 5", L"Standard (Industrial) 2 of 5") \
    ROW(interleaved2of5, L"Interleaved 2 of 5", L"Interleaved 2 of 5") \
    ROW(code39Ext, L"Extended Code39", L"Расширение Code39") \
    ROW(code93, L"Code93", L"Code93") \
    ROW(itf14, L"ITF-14", L"ITF-14") \
    ROW(rss14, L"RSS-14", L"RSS-14") \
    ROW(codaBar, L"Codabar", L"Codabar") \
    ROW(ean13AddOn2, L"EAN-13 + 2", L"EAN-13 + 2") \
    ROW(ean13AddOn5, L"EAN-13 + 5", L"EAN-13 + 5") \
    ROW(qr, L"QR Code", L"QR Code") \
    ROW(internalError, L"Internal error.", L"Внутренняя ошибка.") \
    ROW(outOfMemory, L"Out of memory.", L"Недостаточно памяти.") \
    ROW(pointer, L"Invalid pointer.", L"Неверный указатель.") \
    ROW(wrongValue, L"Wrong value.", L"Неверное значение.") \
    ROW(proppageParentTitle, L"Barcode", L"Штрихкод") \
    ROW(barAlignNone, L"No auto alignmemt", L"Не выравнивать") \
    ROW(barAlignLeft, L"Align left", L"По левому краю") \
    ROW(barAlignCenter, L"Align center", L"По центру") \
    ROW(barAlignRight, L"Align right", L"По правому краю") \
    ROW(proppageBarColor, L"Bar color", L"Цвет полос") \
    ROW(proppageBgColor, L"Background color", L"Цвет фона") \
    ROW(proppageFont, L"Font", L"Шрифт") \
    ROW(proppageBgTransparent, L"Transparent background", L"Прозрачный фон") \
    ROW(proppageCanvasRotation, L"Rotation", L"Угол поворота") \
    ROW(proppageCanvasMargin, L"Margin", L"Размер края") \
    ROW(proppageTextAlign, L"Text alignment", L"Ориентация текста") \
    ROW(proppageCanvasXOffset, L"Horizontal offset", L"Горизонтальное смещение") \
    ROW(proppageTextPosition, L"Text position", L"Положение текста") \
    ROW(proppageCanvasYOffset, L"Vertical offset", L"Вертикальное смещение") \
    ROW(proppageTextVisible, L"Show text", L"Отображать текст") \
    ROW(proppageAspectRatio, L"Aspect ratio", L"Пропорции") \
    ROW(proppageCodeType, L"Code type", L"Тип кода") \
    ROW(proppageCodeValue, L"Value", L"Значение") \
    ROW(proppageCodeAuto, L"Detect code type", L"Определять тип кода") \
    ROW(proppageCodeCS, L"Check symbol", L"Контрольный символ") \
    ROW(proppageCodeRawValue, L"Raw value", L"Содержит контрольный символ") \
    ROW(proppageCodeText, L"Text", L"Текст") \
    ROW(proppageCodeShowCS, L"Show check symbol", L"Показывать контрольный символ") \
    ROW(proppageCodeSentinel, L"Sentinel height", L"Высота разделителей") \
    ROW(proppageCodeMinHeight, L"Minimum height", L"Минимальная высота") \
    ROW(proppageCodeMinWidth, L"Minimum width", L"Минимальная ширина") \
    ROW(proppageColumnCount, L"Column count", L"Количество столбцов") \
    ROW(proppageRowCount, L"Row count", L"Количество строк") \
    ROW(proppageECL, L"Error correction level", L"Уровень коррекции") \
    ROW(proppageBarAlign, L"Bar alignment", L"Выравнивание кода") \
    ROW(eiOutOfMemory, L"Out of memory.", L"Недостаточно памяти.") \
    ROW(eiUnexpected, L"Unexpected error. Please contact technical support.", L"Неизвестная ошибка. Пожалуйста обратитесь на линию технической поддержки.") \
    ROW(eiCanvasRotationWrongValue, L"Incorrect value of «CanvasRotation» property. Allowed values are: 0, 90, 180, 270.", L"Некорректное значение свойства «УголПоворота». Возможные значения: 0, 90, 180, 270.") \
    ROW(eiTextAlignWrongValue, L"Incorrect value of «TextAlign» property. Allowed values are: 0, 1, 2, 3, 4, 5, 6.", L"Некорректное значение свойства «ОриентацияТекста». Возможные значения: 0, 1, 2, 3, 4, 5, 6.") \
    ROW(eiTextPositionWrongValue, L"Incorrect value of «TextPosition» property. Allowed values are: 0, 1.", L"Некорректное значение свойства «ПоложениеТекста». Возможные значения: 0, 1.") \
    ROW(eiBarAlignWrongValue, L"Incorrect value of «BarAlign» property. Allowed values are: 0, 1, 2, 3.", L"Некорректное значение свойства «ВыравниваниеКода». Возможные значения: 0, 1, 2, 3.") \
    ROW(eiFontWrongValue, L"Incorrect value of «Font» property.", L"Некорректное значение свойства «Шрифт».") \
    ROW(eiTextColorWrongValue, L"Incorrect value of «TextColor» property.", L"Некорректное значение свойства «ЦветТекста».") \
    ROW(eiTextVisibleWrongValue, L"Incorrect value of «TextVisible» property. Allowed values are: True, False.", L"Некорректное значение свойства «ОтображатьТекст». Возможные значения: Ложь, Истина.") \
    ROW(eiBgColorWrongValue, L"Incorrect value of «BgColor» property.", L"Некорректное значение свойства «ЦветФона».") \
    ROW(eiBgTransparentWrongValue, L"Incorrect value of «BgTransparent» property. Allowed values are: True, False.", L"Некорректное значение свойства «ПрозрачныйФон». Возможные значения: Ложь, Истина.") \
    ROW(eiBarColorWrongValue, L"Incorrect value of «BarColor» property.", L"Некорректное значение свойства «ЦветПолос».") \
    ROW(eiCanvasXOffsetWrongValue, L"Incorrect value of «CanvasXOffset» property. Allowed values are: non-negative numbers.", L"Некорректное значение свойства «ГорСмещение». Возможные значения: неотрицательные числа.") \
    ROW(eiCanvasYOffsetWrongValue, L"Incorrect value of «CanvasYOffset» property. Allowed values are: non-negative numbers.", L"Некорректное значение свойства «ВертСмещение». Возможные значения: неотрицательные числа.") \
    ROW(eiCanvasMarginWrongValue, L"Incorrect value of «CanvasMargin» property. Allowed values are: non-negative numbers.", L"Некорректное значение свойства «РазмерКрая». Возможные значения: неотрицательные числа.") \
    ROW(eiCodeType1WrongValue, L"Incorrect value of «CodeType» property. Allowed values are: 0, 1, 2, 3, 4, 5.", L"Некорректное значение свойства «ТипКода». Возможные значения: 0, 1, 2, 3, 4, 5.") \
    ROW(eiCodeType2WrongValue, L"Incorrect value of «CodeType» property. Allowed values are: 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11.", L"Некорректное значение свойства «ТипКода». Возможные значения: 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11.") \
    ROW(eiCodeAutoWrongValue, L"Incorrect value of «CodeAuto» property. Allowed values are: True, False.", L"Некорректное значение свойства «АвтоТип». Возможные значения: Ложь, Истина.") \
    ROW(eiCodeIsRawWrongValue, L"Incorrect value of «CodeIsRaw» property. Allowed values are: True, False.", L"Некорректное значение свойства «СодержитКС». Возможные значения: Ложь, Истина.") \
    ROW(eiCodeShowCSWrongValue, L"Incorrect value of «CodeShowCS» property. Allowed values are: True, False.", L"Некорректное значение свойства «ВидимостьКС». Возможные значения: Ложь, Истина.") \
    ROW(eiCodeSentinelWrongValue, L"Incorrect value of «CodeSentinel» property. Allowed values are: integers between 0 and 100.", L"Некорректное значение свойства «Разделители». Возможные значения: целые числа в диапазоне 0 - 100.") \
    ROW(eiColumnCountWrongValue, L"Incorrect value of «ColumnCount» property. Allowed values are: non-negative integers.", L"Некорректное значение свойства «КоличествоСтолбцов». Возможные значения: неотрицательные целые числа.") \
    ROW(eiRowCountWrongValue, L"Incorrect value of «RowCount» property. Allowed values are: non-negative integers.", L"Некорректное значение свойства «КоличествоСтрок». Возможные значения: неотрицательные целые числа.") \
    ROW(eiAspectRatioWrongValue, L"Incorrect value of «AspectRatio» property. Allowed values are: string, contains «X:Y», where X and Y are positive integers.", L"Некорректное значение свойства «Пропорции». Возможные значения: строка формата «X:Y», где X и Y - положительные целые числа.") \
    ROW(eiECLWrongValue, L"Incorrect value of «ECL» property. Allowed values are: non-negative integers.", L"Некорректное значение свойства «УровеньКоррекции». Возможные значения: неотрицательные целые числа.") \
    ROW(eiImagickMagickNoInit, L"Unable to initialize fonts. ", L"Невозможно инициализировать работу со шрифтами.")
// clang-format on

enum class MessageSlot : unsigned char {
#define VELKO_MESSAGE_SLOT(name, english, russian) name,
    VELKO_MESSAGE_TABLE(VELKO_MESSAGE_SLOT)
#undef VELKO_MESSAGE_SLOT
};

struct MessageRow {
    MessageSlot slot;
    const char* name;
    const wchar_t* english;
    const wchar_t* russian;
};

#define VELKO_MESSAGE_COUNT(name, english, russian) +1
constexpr std::size_t kMessageSlotCount = 0 VELKO_MESSAGE_TABLE(VELKO_MESSAGE_COUNT);
#undef VELKO_MESSAGE_COUNT

// The row of a slot: its name and both of its texts.
const MessageRow& message_row(MessageSlot slot);
