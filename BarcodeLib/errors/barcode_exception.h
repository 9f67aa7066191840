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
template <unsigned int Code, MessageSlot Slot>
class LocalizedException : public AbstractBarcodeException {
public:
    LocalizedException() { LocalizedException::fillExceptionInfo(state); }

    void fillExceptionInfo(const AbstractTextLocalizerState* localizerState) override {
        code = Code;
        description = localizerState ? localizerState->text(Slot) : L"";
    }
};

// The messages that reach the host with the invalid-argument code.
template <MessageSlot Slot>
using InvalidArgument = LocalizedException<kInvalidArgumentCode, Slot>;

using OutOfMemory = LocalizedException<kOutOfMemoryCode, MessageSlot::eiOutOfMemory>;
using Unexpected = LocalizedException<kUnexpectedCode, MessageSlot::eiUnexpected>;
using CanvasRotationWrongValue = InvalidArgument<MessageSlot::eiCanvasRotationWrongValue>;
using TextAlignWrongValue = InvalidArgument<MessageSlot::eiTextAlignWrongValue>;
using TextPositionWrongValue = InvalidArgument<MessageSlot::eiTextPositionWrongValue>;
using BarAlignWrongValue = InvalidArgument<MessageSlot::eiBarAlignWrongValue>;
using FontWrongValue = InvalidArgument<MessageSlot::eiFontWrongValue>;
using TextColorWrongValue = InvalidArgument<MessageSlot::eiTextColorWrongValue>;
using TextVisibleWrongValue = InvalidArgument<MessageSlot::eiTextVisibleWrongValue>;
using BgColorWrongValue = InvalidArgument<MessageSlot::eiBgColorWrongValue>;
using BgTransparentWrongValue = InvalidArgument<MessageSlot::eiBgTransparentWrongValue>;
using BarColorWrongValue = InvalidArgument<MessageSlot::eiBarColorWrongValue>;
using CanvasXOffsetWrongValue = InvalidArgument<MessageSlot::eiCanvasXOffsetWrongValue>;
using CanvasYOffsetWrongValue = InvalidArgument<MessageSlot::eiCanvasYOffsetWrongValue>;
using CanvasMarginWrongValue = InvalidArgument<MessageSlot::eiCanvasMarginWrongValue>;
using CodeType1WrongValue = InvalidArgument<MessageSlot::eiCodeType1WrongValue>;
using CodeType2WrongValue = InvalidArgument<MessageSlot::eiCodeType2WrongValue>;
using CodeAutoWrongValue = InvalidArgument<MessageSlot::eiCodeAutoWrongValue>;
using CodeIsRawWrongValue = InvalidArgument<MessageSlot::eiCodeIsRawWrongValue>;
using CodeShowCSWrongValue = InvalidArgument<MessageSlot::eiCodeShowCSWrongValue>;
using CodeSentinelWrongValue = InvalidArgument<MessageSlot::eiCodeSentinelWrongValue>;
using ColumnCountWrongValue = InvalidArgument<MessageSlot::eiColumnCountWrongValue>;
using RowCountWrongValue = InvalidArgument<MessageSlot::eiRowCountWrongValue>;
using AspectRatioWrongValue = InvalidArgument<MessageSlot::eiAspectRatioWrongValue>;
using ECLWrongValue = InvalidArgument<MessageSlot::eiECLWrongValue>;
using ImagickMagickNoInit = InvalidArgument<MessageSlot::eiImagickMagickNoInit>;

}  // namespace BarcodeException
