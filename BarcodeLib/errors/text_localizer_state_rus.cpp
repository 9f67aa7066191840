#include "BarcodeLib/errors/text_localizer_state_rus.h"

const wchar_t* TextLocalizerStateRus::text(MessageSlot slot) const {
    return message_row(slot).russian;
}
