#pragma once

#include "BarcodeLib/errors/abstract_text_localizer_state.h"

// English captions and messages.
class TextLocalizerStateEng final : public AbstractTextLocalizerState {
public:
    const wchar_t* text(MessageSlot slot) const override;
};
