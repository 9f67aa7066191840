#pragma once

// One string in both the host's 16-bit form and the wide form, each an owned copy.
class WcharWrapper {
public:
    explicit WcharWrapper(const wchar_t* text);
    explicit WcharWrapper(const unsigned short* text);
    ~WcharWrapper();
    WcharWrapper(const WcharWrapper&) = delete;
    WcharWrapper& operator=(const WcharWrapper&) = delete;

    // Null when the wrapper was made from null.
    const unsigned short* hostString() const { return hostText; }
    const wchar_t* wideString() const { return wideText; }

    static unsigned int getStrLen(const unsigned short* text);

private:
    unsigned short* hostText = nullptr;
    wchar_t* wideText = nullptr;
};
