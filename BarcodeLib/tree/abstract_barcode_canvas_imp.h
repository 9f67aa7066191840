#pragma once

namespace BarcodeVelko {

// The drawing surface behind a BarcodeCanvas.
class AbstractBarcodeCanvasImp {
public:
    virtual unsigned getWidthImp() = 0;
    virtual unsigned getHeightImp() = 0;
    virtual void getXYImp(unsigned* x, unsigned* y) = 0;
    virtual void setXYImp(unsigned x, unsigned y) = 0;
    virtual void drawSpaceImp(unsigned width, unsigned height, bool last) = 0;
    virtual void drawBarImp(unsigned width, unsigned height, bool last) = 0;
    virtual void drawTextImp(unsigned width, unsigned height, const wchar_t* text) = 0;
    // Draws again, at the pen, the band of width x height just above it; false where the
    // surface can't, and the caller draws the band itself.
    virtual bool repeatBandImp(unsigned, unsigned) { return false; }
    // See BarcodeCanvas::beginBand.
    virtual bool beginBandImp(unsigned) { return false; }
    virtual void endBandImp(unsigned) {}
    virtual void setBarColorImp(unsigned color) = 0;
    virtual void setTextColorImp(unsigned color) = 0;
    virtual void fillCanvasImp(unsigned color, bool flag) = 0;
    virtual unsigned getFontHeight() = 0;
    virtual bool IsTransparentBackground() = 0;
    virtual void SetTransparentBackground(bool transparent) = 0;
    virtual void HomemadeHinting(long a, long b, long c, long d) = 0;
    virtual void RenderImage() = 0;
    virtual ~AbstractBarcodeCanvasImp() = default;
};

}  // namespace BarcodeVelko
