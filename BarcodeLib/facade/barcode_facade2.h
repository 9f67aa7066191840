#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "BarcodeLib/facade/code_types.h"
#include "BarcodeLib/smart_ptr.h"
#include "layer/fonts/p_font_info.h"
#include "layer/foundation/p_byte_array.h"
#include "layer/foundation/p_error.h"
#include "layer/graphics/p_image.h"

class PFontDrawHelper;

namespace BarcodeVelko {

class AbstractBarcodeElement;
class AbstractBarcodeStrategy;
class LeafSizes;

// Everything the host can set about a barcode, the value's generation into an element tree,
// and the rendering of that tree into a picture.
class BarcodeFacade2 {
public:
    static constexpr unsigned kCodeTypeCount = BarcodeVelko::kCodeTypeCount;
    static constexpr unsigned kAutoTextAlign = 0xFFFFFFFF;
    // BarVerticalAlign: where the symbol stands in a picture taller than itself.
    enum VerticalAlign : unsigned { kAlignTop = 1, kAlignMiddle = 2, kAlignBottom = 3 };
    // The longest code, as the symbologies get it, that a picture can show: every character of a
    // linear symbol takes a module of a pixel or more in a picture of at most kMaxSide pixels a
    // side, and a matrix or stacked symbol holds at most 3116 characters. No tree is built for a
    // longer one (docs/limits.md).
    static constexpr std::size_t kMaxValueLength = PImage::kMaxSide;

    BarcodeFacade2();
    ~BarcodeFacade2();
    BarcodeFacade2(const BarcodeFacade2&) = delete;
    BarcodeFacade2& operator=(const BarcodeFacade2&) = delete;

    // Settings: stored, clamped silently, or refused by an exception.
    unsigned getTextColor() const { return textColor; }
    void setTextColor(unsigned value);
    unsigned getBgColor() const { return bgColor; }
    void setBgColor(unsigned value);
    unsigned getBarColor() const { return barColor; }
    void setBarColor(unsigned value);
    bool getTextVisible() const { return textVisible; }
    void setTextVisible(bool value);
    bool getBgTransparent() const { return bgTransparent; }
    void setBgTransparent(bool value);
    bool getCodeAuto() const { return codeAuto; }
    void setCodeAuto(bool value);
    bool getRemoveExeedBackgroudFlag() const { return removeExeedBackgroud; }
    void setRemoveExeedBackgroudFlag(bool value);
    int getCanvasXOffset() const { return canvasXOffset; }
    void setCanvasXOffset(int value);
    int getCanvasYOffset() const { return canvasYOffset; }
    void setCanvasYOffset(int value);
    int getCanvasMargin() const { return canvasMargin; }
    void setCanvasMargin(int value);
    int getMaxFontSizeForHinting() const { return maxFontSizeForHinting; }
    void setMaxFontSizeForHinting(int value);
    const wchar_t* getFileName() const { return fileName.c_str(); }
    void setFileName(const wchar_t* value);
    void setLogo(const PImage& value);
    double getLogoSizePercent() const { return logoSizePercent; }
    void setLogoSizePercent(double value);
    unsigned getTextAlign() const { return textAlign; }
    void setTextAlign(unsigned value);
    unsigned getBarAlign() const { return barAlign; }
    void setBarAlign(unsigned value);
    unsigned getTextPos() const { return textPos; }
    void setTextPos(unsigned value);
    unsigned getCanvasRotation() const { return canvasRotation; }
    void setCanvasRotation(unsigned value);
    unsigned getBarVerticalAlign() const { return barVerticalAlign; }
    void setBarVerticalAlign(unsigned value);
    unsigned getColumnCount() const { return columnCount; }
    void setColumnCount(unsigned value);
    unsigned getRowCount() const { return rowCount; }
    void setRowCount(unsigned value);
    unsigned getColumn2DCount() const { return column2DCount; }
    void setColumn2DCount(unsigned value);
    unsigned getRow2DCount() const { return row2DCount; }
    void setRow2DCount(unsigned value);
    unsigned getECL() const { return ecl; }
    void setECL(unsigned value);
    unsigned char getQRErrorCorrectionLevel() const { return qrErrorCorrectionLevel; }
    void setQRErrorCorrectionLevel(unsigned char value);
    unsigned char getGS1DatabarRowCount() const { return gs1DatabarRowCount; }
    void setGS1DatabarRowCount(unsigned char value);
    unsigned getCodeSentinel() const { return codeSentinel; }
    void setCodeSentinel(unsigned value);
    int getDataType() const { return dataType; }
    void setDataType(int value);
    unsigned getFontSize() const { return fontSize; }
    void setFontSize(unsigned value);
    void setCodeText(const wchar_t* value);

    // Fonts: the sorted list of the system's fonts and the one in use. The list is made at the
    // first of these calls, not with the object: listing the system's fonts costs more than a
    // first picture, and a picture in the built-in font needs no list.
    std::wstring getFont() const;
    void setFont(const std::wstring& name);
    bool findFont(const std::wstring& name);
    unsigned getFontCount() const;
    std::wstring getFontAt(unsigned index) const;

    // "X:Y", read with the scan format "%d:%d".
    std::wstring getAspectRatio() const;
    void setAspectRatio(const wchar_t* text);

    unsigned getCodeMinWidth() const;
    unsigned getCodeMinHeight() const;
    bool isGraphicsPresent() const { return true; }
    bool IsHintingEnabled() const;
    bool IsBlackAndWhiteImage() const;
    bool IsHomemadeHinting() const;
    bool IsThresholdHinting() const;

    // The value and its generation.
    const wchar_t* getCodeValue() const { return codeValue.c_str(); }
    void setCodeValue(const wchar_t* value);
    const wchar_t* getCodeCheckSymbol() const { return codeCheckSymbol.c_str(); }
    const wchar_t* getCodeText() const { return codeText.c_str(); }
    unsigned getCodeType() const { return codeType; }
    void setCodeType(unsigned type);
    bool getCodeShowCS() const { return codeShowCS; }
    void setCodeShowCS(bool flag);
    bool getCodeIsRaw() const { return codeIsRaw; }
    void setCodeIsRaw(bool flag);

    bool generateCode();
    bool tryStrategy(int type, const wchar_t* value, std::wstring& text, std::wstring& checkSymbol,
                     AbstractBarcodeElement** element);
    bool tryStrategyRaw(int type, const wchar_t* value, std::wstring& text,
                        std::wstring& checkSymbol, AbstractBarcodeElement** element);
    // The type found by trying each in turn; kCodeTypeCount for an empty value.
    int getCodeTypeByValue(const std::wstring& value, int valueDataType);
    // The text that is really encoded: a copy, or the decoded Base64 for data type 1.
    static std::wstring prepareCodeValue(const std::wstring& value, int dataType, int codeType);
    // A new strategy of the code type, owned by the caller.
    AbstractBarcodeStrategy* getStrategy(int type);

    // Rendering: never throws for a barcode that can't be drawn; the picture then shows the
    // error and getLastError() says which.
    PImage draw();
    PImage draw2mem();
    // The picture, and for each of its rows 1 where the row is known to repeat the row above,
    // for the PNG step; empty when nothing is known.
    PImage draw(std::vector<unsigned char>& repeatedRows);
    PError getLastError() const { return lastError; }

private:
    // The first and second arguments of generate for a plain value: the picture size in the
    // symbol's own orientation.
    int pictureFirst() const;
    int pictureSecond() const;
    // Puts an automatic text alignment to the strategy's default, then builds the tree of code
    // with first and second; false when the strategy refuses code.
    bool generateTree(AbstractBarcodeStrategy& strategy, const wchar_t* code, int first, int second,
                      SmartPtr<AbstractBarcodeElement>& tree);
    // In place of generateTree for a code longer than kMaxValueLength; stem is the code without
    // its check symbol.
    bool longCode(AbstractBarcodeStrategy& strategy, int type, const std::wstring& code,
                  const std::wstring& stem, int first, int second,
                  SmartPtr<AbstractBarcodeElement>& tree);
    // What one attempt of generateCode builds a tree from, and what it left: an attempt with the
    // same inputs builds the same tree again. A strategy's generate is idempotent on its own
    // text (given the text it left, it builds the same tree and leaves that text), so the text
    // before an attempt matches if the earlier attempt began or ended with it; the same holds of
    // an automatic text alignment.
    struct GenerationInputs {
        int type = 0;
        bool raw = false;
        std::wstring value;
        unsigned textAlign = 0;
        unsigned textPos = 0;
        bool showCS = false;
        int first = 0;
        int second = 0;
        unsigned ecl = 0;
        unsigned char param = 0;
        std::wstring text;
        // What the attempt left.
        unsigned textAlignAfter = 0;
        std::wstring textAfter;
        std::wstring checkSymbol;
    };
    GenerationInputs inputsOf(int type, bool raw, const std::wstring& value) const;
    static bool sameTree(const GenerationInputs& made, const GenerationInputs& wanted);
    // tryStrategy or tryStrategyRaw, or the tree of an earlier attempt of the same inputs that
    // is still as generated: root, or the type search's find. made gets the inputs of a success.
    bool attempt(int type, bool raw, const std::wstring& value, std::wstring& text,
                 std::wstring& checkSymbol, AbstractBarcodeElement** element,
                 GenerationInputs& made);
    // The argument param of generate for the type, as getStrategy sets it.
    unsigned char paramFor(int type) const;
    // Where and how large the sized tree goes on the canvas.
    struct Placement {
        unsigned canvasWidth = 0;
        unsigned canvasHeight = 0;
        unsigned textSize = 0;
        unsigned x = 0;
        unsigned y = 0;
        // The sized tree's: each measure walks the whole tree.
        unsigned symbolWidth = 0;
        unsigned symbolHeight = 0;
    };
    // Generates the tree for this picture and sizes it, both unless the tree stands so already;
    // an error that stops the picture is returned.
    PError placeTree(Placement& placement);
    // Puts root's sizes back to those it was generated with.
    void unsizeRoot(bool onlyIfReadAsGenerated = false) const;
    // A root new, or left sized halfway, has no sizes of a picture to keep.
    void forgetRootSizes();
    PImage drawPicture(std::vector<unsigned char>* repeatedRows);
    // The placed tree on a new canvas, and what is known of its rows when asked; an empty image
    // with lastError set when that fails.
    PImage paintTree(const Placement& placement, std::vector<unsigned char>* repeatedRows);
    PImage drawErrorImage() const;
    // Lists the system's fonts once for this object; with fonts, the one in use becomes the
    // built-in "default", as it stays (empty) where there are none.
    void listFonts() const;

    std::wstring fileName;
    mutable bool fontsListed = false;
    mutable std::vector<PFontInfo> fonts;
    // Empty until listFonts finds fonts; drawn as the built-in font either way.
    mutable PFontInfo font;
    unsigned fontSize = 10;
    int maxFontSizeForHinting = 16;
    unsigned textColor = 0xFF000000;
    unsigned textAlign = kAutoTextAlign;
    unsigned textPos = 0;
    bool textVisible = true;
    unsigned bgColor = 0xFFFFFFFF;
    bool bgTransparent = false;
    unsigned barColor = 0xFF000000;
    unsigned canvasRotation = 0;
    int canvasXOffset = 0;
    int canvasYOffset = 0;
    int canvasMargin = 0;
    unsigned barAlign = 2;
    unsigned barVerticalAlign = 1;
    unsigned codeType = 1;
    bool codeAuto = true;
    bool codeIsRaw = false;
    bool codeShowCS = true;
    std::wstring codeValue;
    std::wstring codeCheckSymbol;
    std::wstring codeText;
    unsigned codeSentinel = 30;
    SmartPtr<AbstractBarcodeElement> root;
    // The inputs that root was generated from, while an attempt may take it again.
    std::optional<GenerationInputs> rootInputs;
    // What a size visitor is made from; the same sizes the same tree the same way.
    struct SizingInputs {
        unsigned type;
        unsigned canvasWidth;
        unsigned canvasHeight;
        unsigned textSize;
        unsigned sentinel;
        int aspectX;
        int aspectY;
        bool operator==(const SizingInputs& other) const;
    };
    // While root stands sized by a picture: what sized it, and its sizes and measures as
    // generated. When an attempt outside a picture has taken it again, its measures read as
    // generated, and a picture of other sizes puts the generated sizes back first.
    mutable std::optional<SizingInputs> rootSizedFor;
    std::unique_ptr<LeafSizes> generatedSizes;
    mutable bool readsAsGenerated = false;
    // A picture's own generation takes root sized as it is.
    bool picturing = false;
    // The tree that the type search found, with its inputs, for the generation after it.
    SmartPtr<AbstractBarcodeElement> searchTree;
    std::optional<GenerationInputs> searchInputs;
    bool demoMode = true;
    bool codeValid = false;
    unsigned columnCount = 150;
    unsigned rowCount = 100;
    unsigned column2DCount = 0;
    unsigned row2DCount = 0;
    int aspectX = 1;
    int aspectY = 4;
    unsigned ecl = 1;
    unsigned char strategyParam = 0;
    unsigned char qrErrorCorrectionLevel = 1;
    unsigned char gs1DatabarRowCount = 100;
    int dataType = 0;
    bool removeExeedBackgroud = false;
    PImage logo;
    double logoSizePercent = 0.0;
    // The pixels of the last picture, painted over by the next one of the same size: a new
    // buffer each time costs the allocator's first touch of fresh memory. Kept up to a
    // label-sized picture only.
    static constexpr std::size_t kMaxSpareCanvasBytes = 4u << 20;
    PByteArray spareCanvas;
    // The text helper of the last picture, with the glyphs it made ready.
    std::unique_ptr<PFontDrawHelper> spareTextHelper;
    PError lastError;
    mutable std::mutex mutex;
};

}  // namespace BarcodeVelko
