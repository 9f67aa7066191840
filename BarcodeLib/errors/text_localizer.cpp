#include "BarcodeLib/errors/text_localizer.h"

#include <mutex>
#include <string>

#include "BarcodeLib/errors/process_locale.h"
#include "BarcodeLib/errors/text_localizer_state_eng.h"
#include "BarcodeLib/errors/text_localizer_state_rus.h"

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

// Never destroyed: an exception made on some thread while the process ends still finds its
// texts.
const AbstractTextLocalizerState* englishState() {
    static const AbstractTextLocalizerState* const state = new TextLocalizerStateEng();
    return state;
}

const AbstractTextLocalizerState* russianState() {
    static const AbstractTextLocalizerState* const state = new TextLocalizerStateRus();
    return state;
}

}  // namespace

TextLocalizer::TextLocalizer(unsigned long lcid) {
    setLCID(lcid);
}

bool TextLocalizer::setLCID(unsigned long lcid) {
    const bool english = (lcid & kPrimaryLanguageMask) == kLangEnglish;
    state = english ? englishState() : russianState();
    return state.load() != nullptr;
}

unsigned long lcid_for_locale_name(const char* localeName) {
    if (localeName != nullptr && startsWithIgnoringCase(localeName, "russian_russia")) {
        return kLcidRussianDefault;
    }
    return kLcidEnglishUS;
}

unsigned long get_current_lcid() {
    const std::string name = process_locale_name();
    return lcid_for_locale_name(name.c_str());
}

const AbstractTextLocalizerState* get_localizer_state() {
    static TextLocalizer localizer(kLcidRussianDefault);
    static std::mutex mutex;
    // The locale is read before the lock: the two locks are never held together.
    const unsigned long lcid = get_current_lcid();
    const std::lock_guard<std::mutex> lock(mutex);
    localizer.setLCID(lcid);
    return localizer.getState();
}
