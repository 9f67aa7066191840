#pragma once

namespace BarcodeVelko {

class AbstractBarcodeCanvasImp;

// What the tree draws on; every operation goes to the implementor it owns.
class BarcodeCanvas {
public:
    explicit BarcodeCanvas(AbstractBarcodeCanvasImp* imp);
    BarcodeCanvas(const BarcodeCanvas&) = delete;
    BarcodeCanvas& operator=(const BarcodeCanvas&) = delete;

    virtual unsigned getWidth();
    virtual unsigned getHeight();
    virtual void getXY(unsigned* x, unsigned* y);
    virtual void setXY(unsigned x, unsigned y);
    virtual void drawSpace(unsigned width, unsigned height, bool last);
    virtual void drawBar(unsigned width, unsigned height, bool last);
    virtual void drawText(unsigned width, unsigned height, const wchar_t* text);
    // False when the band was not copied and has to be drawn.
    virtual bool repeatBand(unsigned width, unsigned height);
    // Runs of this height drawn from the pen until endBand: the canvas may draw their first line
    // only and copy it down at the end, over the width given. False when it draws them whole.
    virtual bool beginBand(unsigned height);
    virtual void endBand(unsigned width);
    virtual ~BarcodeCanvas();

private:
    AbstractBarcodeCanvasImp* imp;
};

}  // namespace BarcodeVelko
