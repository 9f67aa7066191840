#pragma once

#include <string>
#include <vector>

#include "BarcodeLib/abstract_barcode_canvas_imp.h"

namespace SpineTest {

// Records what the tree asks of the bridge. Each drawing call moves the pen on by the box it was
// given, as a careless surface might, so that a composite relying on it is caught.
class RecordingCanvasImp : public BarcodeVelko::AbstractBarcodeCanvasImp {
public:
    struct Call {
        char kind;  // 'b' bar, 's' space, 't' text
        unsigned x, y, width, height;
        bool last;
        std::wstring text;
        bool operator==(const Call& o) const {
            return kind == o.kind && x == o.x && y == o.y && width == o.width &&
                   height == o.height && last == o.last && text == o.text;
        }
    };

    std::vector<Call> calls;
    unsigned penX = 0;
    unsigned penY = 0;

    unsigned getWidthImp() override { return 1000; }
    unsigned getHeightImp() override { return 1000; }
    void getXYImp(unsigned* x, unsigned* y) override {
        *x = penX;
        *y = penY;
    }
    void setXYImp(unsigned x, unsigned y) override {
        penX = x;
        penY = y;
    }
    void drawSpaceImp(unsigned width, unsigned height, bool last) override {
        record('s', width, height, last, L"");
    }
    void drawBarImp(unsigned width, unsigned height, bool last) override {
        record('b', width, height, last, L"");
    }
    void drawTextImp(unsigned width, unsigned height, const wchar_t* text) override {
        record('t', width, height, false, text);
    }
    void setBarColorImp(unsigned) override {}
    void setTextColorImp(unsigned) override {}
    void fillCanvasImp(unsigned, bool) override {}
    unsigned getFontHeight() override { return 0; }
    bool IsTransparentBackground() override { return false; }
    void SetTransparentBackground(bool) override {}
    void HomemadeHinting(long, long, long, long) override {}
    void RenderImage() override {}

private:
    void record(char kind, unsigned width, unsigned height, bool last, const wchar_t* text) {
        calls.push_back({kind, penX, penY, width, height, last, text});
        penX += width;
        penY += height;
    }
};

}  // namespace SpineTest
