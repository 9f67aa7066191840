#include "host/wchar_wrapper.h"

#include <cwchar>

#include "host/text_forms.h"

WcharWrapper::WcharWrapper(const wchar_t* text) {
    if (text) {
        // Copied directly: a round trip through the host form would cut characters above U+FFFF.
        const size_t units = std::wcslen(text) + 1;
        wideText = new wchar_t[units];
        std::wmemcpy(wideText, text, units);
        convToShortWchar(&hostText, text);
    }
}

WcharWrapper::WcharWrapper(const unsigned short* text) {
    if (text) {
        convFromShortWchar(&wideText, text);
        convToShortWchar(&hostText, wideText);
    }
}

WcharWrapper::~WcharWrapper() {
    delete[] hostText;
    delete[] wideText;
}

unsigned int WcharWrapper::getStrLen(const unsigned short* text) {
    return getLenShortWcharStr(text);
}
