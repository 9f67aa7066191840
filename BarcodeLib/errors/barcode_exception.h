#pragma once

#include <string>

#include "BarcodeLib/errors/abstract_text_localizer_state.h"

// What the core reports to the host. Not derived from std::exception on purpose: handlers for
// std::exception in the tree let these pass unchanged.
namespace BarcodeException {

enum SystemCode : unsigned int {
    kOutOfMemoryCode = 0x8007000E,
    kInvalidArgumentCode = 0x80070057,
    kUnexpectedCode = 0x8000FFFF,
};

class AbstractBarcodeException {
public:
    AbstractBarcodeException();
    virtual ~AbstractBarcodeException() = default;

    virtual void fillExceptionInfo(const AbstractTextLocalizerState* localizerState);

    std::wstring getDescription() const { return description; }
    unsigned int getCode() const { return code; }

protected:
    unsigned int code;
    std::wstring description;
    // The language in force when the exception was made; read only while it is constructed.
    const AbstractTextLocalizerState* state;
};

// One class per message: its system code and its slot of the localizer.
template <unsigned int Code, const wchar_t* (AbstractTextLocalizerState::*Slot)() const>
class LocalizedException : public AbstractBarcodeException {
public:
    LocalizedException() { LocalizedException::fillExceptionInfo(state); }

    void fillExceptionInfo(const AbstractTextLocalizerState* localizerState) override {
        code = Code;
        description = localizerState ? (localizerState->*Slot)() : L"";
    }
};

using S = AbstractTextLocalizerState;
using OutOfMemory = LocalizedException<kOutOfMemoryCode, &S::eiOutOfMemory>;
using Unexpected = LocalizedException<kUnexpectedCode, &S::eiUnexpected>;
using CanvasRotationWrongValue =
    LocalizedException<kInvalidArgumentCode, &S::eiCanvasRotationWrongValue>;
using TextAlignWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiTextAlignWrongValue>;
using TextPositionWrongValue =
    LocalizedException<kInvalidArgumentCode, &S::eiTextPositionWrongValue>;
using BarAlignWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiBarAlignWrongValue>;
using FontWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiFontWrongValue>;
using TextColorWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiTextColorWrongValue>;
using TextVisibleWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiTextVisibleWrongValue>;
using BgColorWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiBgColorWrongValue>;
using BgTransparentWrongValue =
    LocalizedException<kInvalidArgumentCode, &S::eiBgTransparentWrongValue>;
using BarColorWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiBarColorWrongValue>;
using CanvasXOffsetWrongValue =
    LocalizedException<kInvalidArgumentCode, &S::eiCanvasXOffsetWrongValue>;
using CanvasYOffsetWrongValue =
    LocalizedException<kInvalidArgumentCode, &S::eiCanvasYOffsetWrongValue>;
using CanvasMarginWrongValue =
    LocalizedException<kInvalidArgumentCode, &S::eiCanvasMarginWrongValue>;
using CodeType1WrongValue = LocalizedException<kInvalidArgumentCode, &S::eiCodeType1WrongValue>;
using CodeType2WrongValue = LocalizedException<kInvalidArgumentCode, &S::eiCodeType2WrongValue>;
using CodeAutoWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiCodeAutoWrongValue>;
using CodeIsRawWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiCodeIsRawWrongValue>;
using CodeShowCSWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiCodeShowCSWrongValue>;
using CodeSentinelWrongValue =
    LocalizedException<kInvalidArgumentCode, &S::eiCodeSentinelWrongValue>;
using ColumnCountWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiColumnCountWrongValue>;
using RowCountWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiRowCountWrongValue>;
using AspectRatioWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiAspectRatioWrongValue>;
using ECLWrongValue = LocalizedException<kInvalidArgumentCode, &S::eiECLWrongValue>;
using ImagickMagickNoInit = LocalizedException<kInvalidArgumentCode, &S::eiImagickMagickNoInit>;

}  // namespace BarcodeException
