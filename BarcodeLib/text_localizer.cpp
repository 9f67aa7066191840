#include "BarcodeLib/text_localizer.h"

#include <clocale>
#include <mutex>

#include "BarcodeLib/text_localizer_state_eng.h"
#include "BarcodeLib/text_localizer_state_rus.h"

namespace {

constexpr unsigned long kPrimaryLanguageMask = 0x3FF;
constexpr unsigned long kLangEnglish = 9;
constexpr unsigned long kLcidRussianDefault = 0;
constexpr unsigned long kLcidEnglishUS = 1033;

// ASCII only: the result must not depend on the very locale being examined.
char asciiLower(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

bool startsWithIgnoringCase(const char* text, const char* prefix) {
    for (; *prefix != '\0'; ++text, ++prefix) {
        if (asciiLower(*text) != *prefix) {
            return false;
        }
    }
    return true;
}

}  // namespace

TextLocalizer::TextLocalizer(unsigned long lcid) {
    setLCID(lcid);
}

bool TextLocalizer::setLCID(unsigned long lcid) {
    const bool english = (lcid & kPrimaryLanguageMask) == kLangEnglish;
    // Every exception asks for the state; keeping it while the language stays the same means a
    // state handed to one thread isn't deleted under it by another.
    if (state && english == isEnglish) {
        return true;
    }
    isEnglish = english;
    if (english) {
        state = std::make_unique<TextLocalizerStateEng>();
    } else {
        state = std::make_unique<TextLocalizerStateRus>();
    }
    return state != nullptr;
}

unsigned long lcid_for_locale_name(const char* localeName) {
    if (localeName != nullptr && startsWithIgnoringCase(localeName, "russian_russia")) {
        return kLcidRussianDefault;
    }
    return kLcidEnglishUS;
}

unsigned long get_current_lcid() {
    return lcid_for_locale_name(std::setlocale(LC_ALL, nullptr));
}

const AbstractTextLocalizerState* get_localizer_state() {
    static TextLocalizer localizer(kLcidRussianDefault);
    static std::mutex mutex;
    const std::lock_guard<std::mutex> lock(mutex);
    localizer.setLCID(get_current_lcid());
    return localizer.getState();
}
