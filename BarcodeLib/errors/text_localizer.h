#pragma once

#include <atomic>

#include "BarcodeLib/errors/abstract_text_localizer_state.h"

// Chooses the language of captions and messages by a Windows-style locale identifier.
class TextLocalizer {
public:
    explicit TextLocalizer(unsigned long lcid);

    // English for the primary language 9, Russian for any other.
    bool setLCID(unsigned long lcid);
    // One of two states that live as long as the process: a pointer handed to one thread stays
    // good whatever language another thread switches to afterwards.
    const AbstractTextLocalizerState* getState() const { return state.load(); }

private:
    std::atomic<const AbstractTextLocalizerState*> state{nullptr};
};

// The identifier that a process locale of this name stands for: 0 (Russian) for names that
// begin with "russian_russia" in any case, 1033 (English) otherwise.
unsigned long lcid_for_locale_name(const char* localeName);

// The identifier of the current process locale.
unsigned long get_current_lcid();

// The state of the process-wide localizer, switched to the current process locale first. The
// state lives as long as the process.
const AbstractTextLocalizerState* get_localizer_state();
