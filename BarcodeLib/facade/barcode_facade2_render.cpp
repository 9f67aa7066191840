#include <algorithm>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

#include "BarcodeLib/errors/error_picture_texts.h"
#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/png/logo_step.h"
#include "BarcodeLib/strategy/abstract_barcode_strategy.h"
#include "BarcodeLib/tree/abstract_barcode_element.h"
#include "BarcodeLib/tree/abstract_barcode_visitor.h"
#include "BarcodeLib/tree/barcode_canvas.h"
#include "BarcodeLib/tree/barcode_canvas_memory_impl.h"
#include "BarcodeLib/tree/canvas_rotation.h"
#include "BarcodeLib/tree/leaf_sizes.h"
#include "layer/fonts/p_font_draw_helper.h"

namespace BarcodeVelko {

namespace {

constexpr int kGenerationError = 1;
constexpr int kSizeTooSmall = 2;
constexpr int kInvalidBarcode = 3;

constexpr unsigned kTransparentBackground = 0x00FFFFFF;
constexpr unsigned kMinFontSize = 2;

constexpr unsigned kErrorWidth = 200;
constexpr unsigned kErrorHeight = 100;
constexpr unsigned kErrorFontSize = 12;
constexpr unsigned kErrorTextWidth = 180;

// Each size is halved on its own before the subtraction; 0 when the symbol is the larger.
unsigned centred(unsigned canvas, unsigned symbol) {
    return canvas / 2 > symbol / 2 ? canvas / 2 - symbol / 2 : 0;
}

unsigned farEdge(unsigned canvas, unsigned symbol) {
    return canvas > symbol ? canvas - symbol : 0;
}

}  // namespace

PImage BarcodeFacade2::draw() {
    return draw2mem();
}

PImage BarcodeFacade2::draw(std::vector<unsigned char>& repeatedRows) {
    return drawPicture(&repeatedRows);
}

PImage BarcodeFacade2::draw2mem() {
    return drawPicture(nullptr);
}

PImage BarcodeFacade2::drawPicture(std::vector<unsigned char>* repeatedRows) {
    std::lock_guard<std::mutex> lock(mutex);
    PImage result;
    lastError.clear();
    if (repeatedRows) {
        repeatedRows->clear();
    }
    try {
        Placement placement;
        lastError = placeTree(placement);
        if (lastError.code() == 0) {
            std::vector<unsigned char> repeated;
            result = paintTree(placement, repeatedRows ? &repeated : nullptr);
            if (g_codeTypes[codeType].has(kTakesLogo)) {
                const SymbolArea drawn = {static_cast<int>(placement.x),
                                          static_cast<int>(placement.y), placement.symbolWidth,
                                          placement.symbolHeight};
                // The logo's rows repeat nothing.
                if (stampLogo(result, logo, logoSizePercent,
                              deliveredArea(drawn, placement.canvasWidth, placement.canvasHeight,
                                            canvasRotation))) {
                    repeated.clear();
                }
            }
            if (repeatedRows) {
                *repeatedRows = std::move(repeated);
            }
            PByteArray pixels = result.data();
            if (result.isValid() && pixels.size() <= kMaxSpareCanvasBytes) {
                spareCanvas = pixels;
            }
        }
    } catch (...) {
        lastError = PError(kGenerationError, PString(kGenerationErrorText));
        // The tree may be left sized halfway.
        picturing = false;
        rootInputs.reset();
        forgetRootSizes();
    }

    if (!result.isValid()) {
        result = drawErrorImage();
    }
    return result;
}

bool BarcodeFacade2::SizingInputs::operator==(const SizingInputs& other) const {
    return type == other.type && canvasWidth == other.canvasWidth &&
           canvasHeight == other.canvasHeight && textSize == other.textSize &&
           sentinel == other.sentinel && aspectX == other.aspectX && aspectY == other.aspectY;
}

void BarcodeFacade2::forgetRootSizes() {
    rootSizedFor.reset();
    generatedSizes.reset();
    readsAsGenerated = false;
}

void BarcodeFacade2::unsizeRoot(bool onlyIfReadAsGenerated) const {
    if (onlyIfReadAsGenerated && !readsAsGenerated) {
        return;
    }
    if (rootSizedFor && generatedSizes && root) {
        generatedSizes->restore();
    }
    rootSizedFor.reset();
    readsAsGenerated = false;
}

PError BarcodeFacade2::placeTree(Placement& placement) {
    unsigned width = columnCount;
    unsigned height = rowCount;

    // Shrinking to the symbol needs the tree of an earlier generation; without one the
    // picture keeps its size.
    if (removeExeedBackgroud && root) {
        const bool asGenerated = rootSizedFor && readsAsGenerated;
        columnCount = asGenerated ? generatedSizes->width() : root->getWidth();
        rowCount = asGenerated ? generatedSizes->height() : root->getHeight();
        picturing = true;
        codeValid = generateCode();
        picturing = false;
        if (codeValid) {
            width = columnCount;
            height = rowCount;
        }
    } else {
        picturing = true;
        codeValid = generateCode();
        picturing = false;
    }

    placement.canvasWidth = width;
    placement.canvasHeight = height;
    if (isTurned(canvasRotation)) {
        std::swap(placement.canvasWidth, placement.canvasHeight);
    }
    if (!codeValid || !root) {
        return PError(kInvalidBarcode, PString(kInvalidBarcodeText));
    }
    // The tree's measures as generated, in modules.
    const bool sized = rootSizedFor && generatedSizes;
    const unsigned treeWidth = sized ? generatedSizes->width() : root->getWidth();
    const unsigned treeHeight = sized ? generatedSizes->height() : root->getHeight();
    if (placement.canvasWidth == 0 || placement.canvasHeight == 0 ||
        treeWidth > placement.canvasWidth || treeHeight > placement.canvasHeight) {
        return PError(kSizeTooSmall, PString(kSizeTooSmallText));
    }

    const unsigned textSize = textVisible ? std::max(fontSize, kMinFontSize) : 0;
    placement.textSize = std::min(textSize, height / 2);
    const SizingInputs sizing{codeType,
                              placement.canvasWidth,
                              placement.canvasHeight,
                              placement.textSize,
                              codeSentinel,
                              aspectX,
                              aspectY};
    if (rootSizedFor && *rootSizedFor == sizing) {
        // What making the strategy would set.
        strategyParam = paramFor(static_cast<int>(codeType));
    } else {
        unsizeRoot();
        SmartPtr<AbstractBarcodeStrategy> strategy(getStrategy(static_cast<int>(codeType)));
        SmartPtr<AbstractBarcodeVisitor> visitor(strategy->sizeVisitor(
            root.get(), placement.canvasWidth, placement.canvasHeight, placement.textSize,
            codeSentinel, static_cast<unsigned>(aspectX), static_cast<unsigned>(aspectY)));
        if (generatedSizes) {
            root->visit(visitor.get());
        } else {
            // The sizes as generated are kept in the same walk.
            generatedSizes = std::make_unique<LeafSizes>(*root, treeWidth, treeHeight, *visitor);
        }
        rootSizedFor = sizing;
    }
    readsAsGenerated = false;

    placement.symbolWidth = root->getWidth();
    placement.symbolHeight = root->getHeight();
    placement.x = centred(placement.canvasWidth, placement.symbolWidth);
    // A picture turned by 180 degrees has its top and bottom exchanged.
    const bool upsideDown = canvasRotation == 180;
    placement.y = 0;
    if (barVerticalAlign == kAlignMiddle) {
        placement.y = centred(placement.canvasHeight, placement.symbolHeight);
    } else if ((barVerticalAlign == kAlignBottom) != upsideDown) {
        placement.y = farEdge(placement.canvasHeight, placement.symbolHeight);
    }
    return PError();
}

PImage BarcodeFacade2::paintTree(const Placement& placement,
                                 std::vector<unsigned char>* repeatedRows) {
    const unsigned background = bgTransparent ? kTransparentBackground : bgColor;
    auto imp = std::make_unique<BarcodeCanvasMemoryImpl>(
        placement.canvasWidth, placement.canvasHeight, background, &spareCanvas);
    imp->lendTextHelper(std::move(spareTextHelper));
    imp->setCanvasRotation(static_cast<int>(canvasRotation));
    imp->setBarColorImp(barColor);
    imp->setTextColorImp(textColor);
    imp->setFont(font);
    imp->setFontSize(placement.textSize);
    BarcodeCanvasMemoryImpl* canvasImp = imp.get();
    BarcodeCanvas canvas(imp.release());

    canvas.setXY(placement.x, placement.y);
    root->draw(&canvas);
    canvasImp->RenderImage();
    spareTextHelper = canvasImp->returnTextHelper();

    PImage image = canvasImp->getImage();
    if (!image.isValid()) {
        lastError = canvasImp->lastError();
    } else if (repeatedRows) {
        *repeatedRows = canvasImp->repeatedRows();
    }
    return image;
}

PImage BarcodeFacade2::drawErrorImage() const {
    try {
        BarcodeCanvasMemoryImpl canvas(kErrorWidth, kErrorHeight, 0xFFFFFFFF);
        canvas.setBarColorImp(0xFF000000);
        canvas.setTextColorImp(0xFF000000);
        canvas.setFont(font);
        canvas.setFontSize(kErrorFontSize);

        const int code = lastError.code();
        const bool known = code == kSizeTooSmall || code == kInvalidBarcode;
        std::wstring text = lastError.message().toStdWString();
        if (!known && text.empty()) {
            text = L"Unknown error";
        }
        canvas.setXYImp(known ? 10 : 5, 40);
        canvas.drawTextImp(kErrorTextWidth, kErrorFontSize, text.c_str());
        return canvas.getImage();
    } catch (...) {
        // The host gets an empty picture rather than an exception.
        return PImage();
    }
}

}  // namespace BarcodeVelko
