#pragma once

#include <memory>
#include <string>

#include "layer/fonts/p_font_info.h"

class PAbstractPaintDevice;
class PFontDrawHelperPrivate;

struct PTextOptions {
    // Spread the characters evenly over the given width.
    bool justify = false;
    // When non-zero, characters without a shape take a blank cell this wide.
    unsigned int dullWidth = 0;
};

// Draws one line of text from cached glyphs: one glyph per character code, side by side at
// their advances. Ink takes the pen's colour and the glyph cells the background brush's.
class PFontDrawHelper {
public:
    PFontDrawHelper();
    ~PFontDrawHelper();
    PFontDrawHelper(const PFontDrawHelper&) = delete;
    PFontDrawHelper& operator=(const PFontDrawHelper&) = delete;

    void setPaintDevice(PAbstractPaintDevice* device);
    bool setFont(const PFontInfo& font);
    bool setFontSize(unsigned int size);
    unsigned int fontSize() const;
    const PFontInfo& font() const;
    void setBackgroundBrush(unsigned int color);
    void setPen(unsigned int color);
    // Glyph cells always carry the background brush; kept for the callers that ask for it.
    void setFillBackground(bool) {}
    int save() { return 0; }
    int restore() { return 0; }

    // x and y are the top left of the line; afterwards x is where the next character would go.
    // A width of 0 lets the line run to the device's right edge, a height of 0 takes the
    // font's line height. Characters are cut whole at the right: one that starts inside the
    // width is drawn in full. Narrow text counts each byte as a character code.
    void draw(const std::string& text, int& x, int& y);
    void draw(char c, int& x, int& y);
    void draw(const std::string& text, int& x, int& y, unsigned int w, unsigned int h);
    void draw(const std::string& text, int& x, int& y, unsigned int w, unsigned int h,
              const PTextOptions& options);
    void draw(const std::wstring& text, int& x, int& y);
    void draw(wchar_t c, int& x, int& y);
    void draw(const std::wstring& text, int& x, int& y, unsigned int w, unsigned int h);
    void draw(const std::wstring& text, int& x, int& y, unsigned int w, unsigned int h,
              const PTextOptions& options);

private:
    std::unique_ptr<PFontDrawHelperPrivate> d;
};
