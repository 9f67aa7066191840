#include "BarcodeLib/errors/text_localizer_state_eng.h"

const wchar_t* TextLocalizerStateEng::text(MessageSlot slot) const {
    return message_row(slot).english;
}
