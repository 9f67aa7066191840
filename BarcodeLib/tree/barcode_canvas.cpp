#include "BarcodeLib/tree/barcode_canvas.h"

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/abstract_barcode_canvas_imp.h"

namespace BarcodeVelko {

BarcodeCanvas::BarcodeCanvas(AbstractBarcodeCanvasImp* imp) : imp(imp) {
    if (imp == nullptr) {
        throw BarcodeException::Unexpected();
    }
}

BarcodeCanvas::~BarcodeCanvas() {
    delete imp;
}

unsigned BarcodeCanvas::getWidth() {
    return imp->getWidthImp();
}

unsigned BarcodeCanvas::getHeight() {
    return imp->getHeightImp();
}

void BarcodeCanvas::getXY(unsigned* x, unsigned* y) {
    imp->getXYImp(x, y);
}

void BarcodeCanvas::setXY(unsigned x, unsigned y) {
    imp->setXYImp(x, y);
}

void BarcodeCanvas::drawSpace(unsigned width, unsigned height, bool last) {
    imp->drawSpaceImp(width, height, last);
}

void BarcodeCanvas::drawBar(unsigned width, unsigned height, bool last) {
    imp->drawBarImp(width, height, last);
}

void BarcodeCanvas::drawText(unsigned width, unsigned height, const wchar_t* text) {
    imp->drawTextImp(width, height, text);
}

bool BarcodeCanvas::repeatBand(unsigned width, unsigned height) {
    return imp->repeatBandImp(width, height);
}

bool BarcodeCanvas::beginBand(unsigned height) {
    return imp->beginBandImp(height);
}

void BarcodeCanvas::endBand(unsigned width) {
    imp->endBandImp(width);
}

}  // namespace BarcodeVelko
