#pragma once

#include <memory>
#include <vector>

#include "BarcodeLib/tree/abstract_barcode_canvas_imp.h"
#include "layer/foundation/p_byte_array.h"
#include "layer/graphics/p_image.h"

class PError;
class PFontDrawHelper;
class PFontInfo;

namespace BarcodeVelko {

struct BarcodeCanvasMemoryImplPrivate;

// Draws the tree into a picture in memory. The tree always sees an unrotated canvas of the
// size given to the constructor; a rotation is done by the paint device alone, on the same
// pixel buffer, so the finished picture needs no copy.
class BarcodeCanvasMemoryImpl : public AbstractBarcodeCanvasImp {
public:
    // For a rotation of 90 or 270 the size is that of the finished picture turned back, with
    // width and height exchanged.
    // With spare, the pixels of an earlier picture, it paints over them where they are of this
    // size; spare is left empty either way.
    BarcodeCanvasMemoryImpl(unsigned width, unsigned height, unsigned background,
                            PByteArray* spare = nullptr);
    BarcodeCanvasMemoryImpl(BarcodeCanvasMemoryImpl&& other) noexcept;
    BarcodeCanvasMemoryImpl(const BarcodeCanvasMemoryImpl&) = delete;
    BarcodeCanvasMemoryImpl& operator=(const BarcodeCanvasMemoryImpl&) = delete;
    ~BarcodeCanvasMemoryImpl() override;

    unsigned getWidthImp() override;
    unsigned getHeightImp() override;
    void getXYImp(unsigned* x, unsigned* y) override;
    void setXYImp(unsigned x, unsigned y) override;
    void drawSpaceImp(unsigned width, unsigned height, bool last) override;
    void drawBarImp(unsigned width, unsigned height, bool last) override;
    void drawTextImp(unsigned width, unsigned height, const wchar_t* text) override;
    bool repeatBandImp(unsigned width, unsigned height) override;
    bool beginBandImp(unsigned height) override;
    void endBandImp(unsigned width) override;
    void setBarColorImp(unsigned color) override;
    void setTextColorImp(unsigned color) override;
    void fillCanvasImp(unsigned color, bool flag) override;
    unsigned getFontHeight() override;
    bool IsTransparentBackground() override;
    void SetTransparentBackground(bool transparent) override;
    void HomemadeHinting(long a, long b, long c, long d) override;
    void RenderImage() override;

    // Degrees, any integer; taken modulo 360 and expected to be a multiple of 90. Call it
    // before drawing: the pixels drawn so far keep their places.
    void setCanvasRotation(int rotation);
    // A text helper of an earlier picture keeps the glyphs it made ready for the same font and
    // size; setFont and setFontSize then leave them.
    void lendTextHelper(std::unique_ptr<PFontDrawHelper> helper);
    std::unique_ptr<PFontDrawHelper> returnTextHelper();
    void setFont(const PFontInfo& font);
    void setFontSize(unsigned size);

    // The picture as it stands, in its final orientation; it shares the pixels.
    PImage getImage() const;
    // For each row of the picture, 1 when it is known to repeat the row above (see
    // RowTrackingDevice); empty when nothing is known.
    std::vector<unsigned char> repeatedRows() const;
    // Always empty: getImage already gives the rotated picture.
    PImage getRotatedImage(int rotation) const;
    PByteArray data() const;
    PError lastError() const;

private:
    unsigned pictureTop(unsigned top, unsigned lines) const;

    std::unique_ptr<BarcodeCanvasMemoryImplPrivate> d;
};

}  // namespace BarcodeVelko
