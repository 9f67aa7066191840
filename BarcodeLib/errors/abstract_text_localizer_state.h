#pragma once

#include "BarcodeLib/errors/message_table.h"

// The captions and messages of one language, read by slot or through the accessor named after
// the slot.
class AbstractTextLocalizerState {
public:
    virtual ~AbstractTextLocalizerState() = default;

    virtual const wchar_t* text(MessageSlot slot) const = 0;

#define VELKO_MESSAGE_ACCESSOR(name, english, russian) \
    const wchar_t* name() const {                      \
        return text(MessageSlot::name);                \
    }
    VELKO_MESSAGE_TABLE(VELKO_MESSAGE_ACCESSOR)
#undef VELKO_MESSAGE_ACCESSOR
};
