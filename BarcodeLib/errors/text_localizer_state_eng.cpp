#include "BarcodeLib/errors/text_localizer_state_eng.h"

const wchar_t* TextLocalizerStateEng::catnameMain() const {
    return L"Main";
}
const wchar_t* TextLocalizerStateEng::catnameDecoration() const {
    return L"Decoration";
}
const wchar_t* TextLocalizerStateEng::yes() const {
    return L"Yes";
}
const wchar_t* TextLocalizerStateEng::no() const {
    return L"No";
}
const wchar_t* TextLocalizerStateEng::center() const {
    return L"Center";
}
const wchar_t* TextLocalizerStateEng::left() const {
    return L"Left";
}
const wchar_t* TextLocalizerStateEng::right() const {
    return L"Right";
}
const wchar_t* TextLocalizerStateEng::full() const {
    return L"Full";
}
const wchar_t* TextLocalizerStateEng::ean1() const {
    return L"EAN1";
}
const wchar_t* TextLocalizerStateEng::ean2() const {
    return L"EAN2";
}
const wchar_t* TextLocalizerStateEng::ean3() const {
    return L"EAN3";
}
const wchar_t* TextLocalizerStateEng::bottom() const {
    return L"Bottom";
}
const wchar_t* TextLocalizerStateEng::top() const {
    return L"Top";
}
const wchar_t* TextLocalizerStateEng::rotate0() const {
    return L"0°";
}
const wchar_t* TextLocalizerStateEng::rotate90() const {
    return L"90°";
}
const wchar_t* TextLocalizerStateEng::rotate180() const {
    return L"180°";
}
const wchar_t* TextLocalizerStateEng::rotate270() const {
    return L"270°";
}
const wchar_t* TextLocalizerStateEng::ean8() const {
    return L"EAN-8";
}
const wchar_t* TextLocalizerStateEng::ean13() const {
    return L"EAN-13";
}
const wchar_t* TextLocalizerStateEng::ean128() const {
    return L"EAN-128";
}
const wchar_t* TextLocalizerStateEng::code39() const {
    return L"Code39";
}
const wchar_t* TextLocalizerStateEng::code128() const {
    return L"Code128";
}
const wchar_t* TextLocalizerStateEng::code16k() const {
    return L"Code16K";
}
const wchar_t* TextLocalizerStateEng::pdf417() const {
    return L"PDF417";
}
const wchar_t* TextLocalizerStateEng::standard2of5() const {
    return L"Standard (Industrial) 2 of 5";
}
const wchar_t* TextLocalizerStateEng::interleaved2of5() const {
    return L"Interleaved 2 of 5";
}
const wchar_t* TextLocalizerStateEng::code39Ext() const {
    return L"Extended Code39";
}
const wchar_t* TextLocalizerStateEng::code93() const {
    return L"Code93";
}
const wchar_t* TextLocalizerStateEng::itf14() const {
    return L"ITF-14";
}
const wchar_t* TextLocalizerStateEng::rss14() const {
    return L"RSS-14";
}
const wchar_t* TextLocalizerStateEng::codaBar() const {
    return L"Codabar";
}
const wchar_t* TextLocalizerStateEng::ean13AddOn2() const {
    return L"EAN-13 + 2";
}
const wchar_t* TextLocalizerStateEng::ean13AddOn5() const {
    return L"EAN-13 + 5";
}
const wchar_t* TextLocalizerStateEng::qr() const {
    return L"QR Code";
}
const wchar_t* TextLocalizerStateEng::internalError() const {
    return L"Internal error.";
}
const wchar_t* TextLocalizerStateEng::outOfMemory() const {
    return L"Out of memory.";
}
const wchar_t* TextLocalizerStateEng::pointer() const {
    return L"Invalid pointer.";
}
const wchar_t* TextLocalizerStateEng::wrongValue() const {
    return L"Wrong value.";
}
const wchar_t* TextLocalizerStateEng::proppageParentTitle() const {
    return L"Barcode";
}
const wchar_t* TextLocalizerStateEng::barAlignNone() const {
    return L"No auto alignmemt";
}
const wchar_t* TextLocalizerStateEng::barAlignLeft() const {
    return L"Align left";
}
const wchar_t* TextLocalizerStateEng::barAlignCenter() const {
    return L"Align center";
}
const wchar_t* TextLocalizerStateEng::barAlignRight() const {
    return L"Align right";
}
const wchar_t* TextLocalizerStateEng::proppageBarColor() const {
    return L"Bar color";
}
const wchar_t* TextLocalizerStateEng::proppageBgColor() const {
    return L"Background color";
}
const wchar_t* TextLocalizerStateEng::proppageFont() const {
    return L"Font";
}
const wchar_t* TextLocalizerStateEng::proppageBgTransparent() const {
    return L"Transparent background";
}
const wchar_t* TextLocalizerStateEng::proppageCanvasRotation() const {
    return L"Rotation";
}
const wchar_t* TextLocalizerStateEng::proppageCanvasMargin() const {
    return L"Margin";
}
const wchar_t* TextLocalizerStateEng::proppageTextAlign() const {
    return L"Text alignment";
}
const wchar_t* TextLocalizerStateEng::proppageCanvasXOffset() const {
    return L"Horizontal offset";
}
const wchar_t* TextLocalizerStateEng::proppageTextPosition() const {
    return L"Text position";
}
const wchar_t* TextLocalizerStateEng::proppageCanvasYOffset() const {
    return L"Vertical offset";
}
const wchar_t* TextLocalizerStateEng::proppageTextVisible() const {
    return L"Show text";
}
const wchar_t* TextLocalizerStateEng::proppageAspectRatio() const {
    return L"Aspect ratio";
}
const wchar_t* TextLocalizerStateEng::proppageCodeType() const {
    return L"Code type";
}
const wchar_t* TextLocalizerStateEng::proppageCodeValue() const {
    return L"Value";
}
const wchar_t* TextLocalizerStateEng::proppageCodeAuto() const {
    return L"Detect code type";
}
const wchar_t* TextLocalizerStateEng::proppageCodeCS() const {
    return L"Check symbol";
}
const wchar_t* TextLocalizerStateEng::proppageCodeRawValue() const {
    return L"Raw value";
}
const wchar_t* TextLocalizerStateEng::proppageCodeText() const {
    return L"Text";
}
const wchar_t* TextLocalizerStateEng::proppageCodeShowCS() const {
    return L"Show check symbol";
}
const wchar_t* TextLocalizerStateEng::proppageCodeSentinel() const {
    return L"Sentinel height";
}
const wchar_t* TextLocalizerStateEng::proppageCodeMinHeight() const {
    return L"Minimum height";
}
const wchar_t* TextLocalizerStateEng::proppageCodeMinWidth() const {
    return L"Minimum width";
}
const wchar_t* TextLocalizerStateEng::proppageColumnCount() const {
    return L"Column count";
}
const wchar_t* TextLocalizerStateEng::proppageRowCount() const {
    return L"Row count";
}
const wchar_t* TextLocalizerStateEng::proppageECL() const {
    return L"Error correction level";
}
const wchar_t* TextLocalizerStateEng::proppageBarAlign() const {
    return L"Bar alignment";
}
const wchar_t* TextLocalizerStateEng::eiOutOfMemory() const {
    return L"Out of memory.";
}
const wchar_t* TextLocalizerStateEng::eiUnexpected() const {
    return L"Unexpected error. Please contact technical support.";
}
const wchar_t* TextLocalizerStateEng::eiCanvasRotationWrongValue() const {
    return L"Incorrect value of «CanvasRotation» property. Allowed values are: 0, 90, 180, 270.";
}
const wchar_t* TextLocalizerStateEng::eiTextAlignWrongValue() const {
    return L"Incorrect value of «TextAlign» property. Allowed values are: 0, 1, 2, 3, 4, 5, 6.";
}
const wchar_t* TextLocalizerStateEng::eiTextPositionWrongValue() const {
    return L"Incorrect value of «TextPosition» property. Allowed values are: 0, 1.";
}
const wchar_t* TextLocalizerStateEng::eiBarAlignWrongValue() const {
    return L"Incorrect value of «BarAlign» property. Allowed values are: 0, 1, 2, 3.";
}
const wchar_t* TextLocalizerStateEng::eiFontWrongValue() const {
    return L"Incorrect value of «Font» property.";
}
const wchar_t* TextLocalizerStateEng::eiTextColorWrongValue() const {
    return L"Incorrect value of «TextColor» property.";
}
const wchar_t* TextLocalizerStateEng::eiTextVisibleWrongValue() const {
    return L"Incorrect value of «TextVisible» property. Allowed values are: True, False.";
}
const wchar_t* TextLocalizerStateEng::eiBgColorWrongValue() const {
    return L"Incorrect value of «BgColor» property.";
}
const wchar_t* TextLocalizerStateEng::eiBgTransparentWrongValue() const {
    return L"Incorrect value of «BgTransparent» property. Allowed values are: True, False.";
}
const wchar_t* TextLocalizerStateEng::eiBarColorWrongValue() const {
    return L"Incorrect value of «BarColor» property.";
}
const wchar_t* TextLocalizerStateEng::eiCanvasXOffsetWrongValue() const {
    return L"Incorrect value of «CanvasXOffset» property. Allowed values are: non-negative "
           L"numbers.";
}
const wchar_t* TextLocalizerStateEng::eiCanvasYOffsetWrongValue() const {
    return L"Incorrect value of «CanvasYOffset» property. Allowed values are: non-negative "
           L"numbers.";
}
const wchar_t* TextLocalizerStateEng::eiCanvasMarginWrongValue() const {
    return L"Incorrect value of «CanvasMargin» property. Allowed values are: non-negative numbers.";
}
const wchar_t* TextLocalizerStateEng::eiCodeType1WrongValue() const {
    return L"Incorrect value of «CodeType» property. Allowed values are: 0, 1, 2, 3, 4, 5.";
}
const wchar_t* TextLocalizerStateEng::eiCodeType2WrongValue() const {
    return L"Incorrect value of «CodeType» property. Allowed values are: 0, 1, 2, 3, 4, 5, 6, 7, "
           L"8, 9, 10, 11.";
}
const wchar_t* TextLocalizerStateEng::eiCodeAutoWrongValue() const {
    return L"Incorrect value of «CodeAuto» property. Allowed values are: True, False.";
}
const wchar_t* TextLocalizerStateEng::eiCodeIsRawWrongValue() const {
    return L"Incorrect value of «CodeIsRaw» property. Allowed values are: True, False.";
}
const wchar_t* TextLocalizerStateEng::eiCodeShowCSWrongValue() const {
    return L"Incorrect value of «CodeShowCS» property. Allowed values are: True, False.";
}
const wchar_t* TextLocalizerStateEng::eiCodeSentinelWrongValue() const {
    return L"Incorrect value of «CodeSentinel» property. Allowed values are: integers between 0 "
           L"and 100.";
}
const wchar_t* TextLocalizerStateEng::eiColumnCountWrongValue() const {
    return L"Incorrect value of «ColumnCount» property. Allowed values are: non-negative integers.";
}
const wchar_t* TextLocalizerStateEng::eiRowCountWrongValue() const {
    return L"Incorrect value of «RowCount» property. Allowed values are: non-negative integers.";
}
const wchar_t* TextLocalizerStateEng::eiAspectRatioWrongValue() const {
    return L"Incorrect value of «AspectRatio» property. Allowed values are: string, contains "
           L"«X:Y», where X and Y are positive integers.";
}
const wchar_t* TextLocalizerStateEng::eiECLWrongValue() const {
    return L"Incorrect value of «ECL» property. Allowed values are: non-negative integers.";
}
const wchar_t* TextLocalizerStateEng::eiImagickMagickNoInit() const {
    return L"Unable to initialize fonts. ";
}
