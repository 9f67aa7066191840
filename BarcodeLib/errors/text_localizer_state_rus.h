#pragma once

#include "BarcodeLib/errors/abstract_text_localizer_state.h"

// Russian captions and messages.
class TextLocalizerStateRus final : public AbstractTextLocalizerState {
public:
    const wchar_t* text(MessageSlot slot) const override;
};
