#include "BarcodeLib/errors/message_table.h"

namespace {

constexpr MessageRow kMessageRows[] = {
#define VELKO_MESSAGE_ROW(name, english, russian) {MessageSlot::name, #name, english, russian},
    VELKO_MESSAGE_TABLE(VELKO_MESSAGE_ROW)
#undef VELKO_MESSAGE_ROW
};

}  // namespace

const MessageRow& message_row(MessageSlot slot) {
    return kMessageRows[static_cast<std::size_t>(slot)];
}
