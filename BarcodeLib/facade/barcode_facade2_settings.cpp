#include <algorithm>
#include <cwchar>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/strategy/text_layout.h"
#include "BarcodeLib/tree/abstract_barcode_element.h"
#include "BarcodeLib/tree/canvas_rotation.h"
#include "BarcodeLib/tree/leaf_sizes.h"
#include "layer/fonts/p_system_font_helper.h"

namespace BarcodeVelko {

namespace {

const wchar_t kDefaultFont[] = L"default";

// The entry of the list, sorted by name, that has exactly this name; null if there is none.
const PFontInfo* entryNamed(const std::vector<PFontInfo>& fonts, const std::wstring& name) {
    const auto found = std::lower_bound(
        fonts.begin(), fonts.end(), name,
        [](const PFontInfo& entry, const std::wstring& key) { return entry.name < key; });
    return found != fonts.end() && found->name == name ? &*found : nullptr;
}

}  // namespace

void BarcodeFacade2::setTextColor(unsigned value) {
    textColor = value;
}

void BarcodeFacade2::setBgColor(unsigned value) {
    bgColor = value;
}

void BarcodeFacade2::setBarColor(unsigned value) {
    barColor = value;
}

void BarcodeFacade2::setTextVisible(bool value) {
    textVisible = value;
}

void BarcodeFacade2::setBgTransparent(bool value) {
    bgTransparent = value;
}

void BarcodeFacade2::setCodeAuto(bool value) {
    codeAuto = value;
}

void BarcodeFacade2::setRemoveExeedBackgroudFlag(bool value) {
    removeExeedBackgroud = value;
}

void BarcodeFacade2::setCanvasXOffset(int value) {
    canvasXOffset = value;
}

void BarcodeFacade2::setCanvasYOffset(int value) {
    canvasYOffset = value;
}

void BarcodeFacade2::setCanvasMargin(int value) {
    canvasMargin = value;
}

void BarcodeFacade2::setMaxFontSizeForHinting(int value) {
    maxFontSizeForHinting = value;
}

void BarcodeFacade2::setFileName(const wchar_t* value) {
    fileName = value ? value : L"";
}

void BarcodeFacade2::setLogo(const PImage& value) {
    logo = value;
}

void BarcodeFacade2::setLogoSizePercent(double value) {
    logoSizePercent = value;
}

void BarcodeFacade2::setTextAlign(unsigned value) {
    if (value > kLastTextLayout) {
        throw BarcodeException::TextAlignWrongValue();
    }
    textAlign = value;
}

void BarcodeFacade2::setBarAlign(unsigned value) {
    if (value > 3) {
        throw BarcodeException::BarAlignWrongValue();
    }
    barAlign = value;
}

void BarcodeFacade2::setTextPos(unsigned value) {
    textPos = value > 1 ? 0 : value;
}

void BarcodeFacade2::setCanvasRotation(unsigned value) {
    canvasRotation = isRightAngle(value) ? value : 0;
}

void BarcodeFacade2::setBarVerticalAlign(unsigned value) {
    barVerticalAlign = value >= kAlignTop && value <= kAlignBottom ? value : kAlignTop;
}

void BarcodeFacade2::setColumnCount(unsigned value) {
    columnCount = std::min(value, PImage::kMaxSide);
}

void BarcodeFacade2::setRowCount(unsigned value) {
    rowCount = std::min(value, PImage::kMaxSide);
}

void BarcodeFacade2::setColumn2DCount(unsigned value) {
    column2DCount = std::min(value, PImage::kMaxSide);
}

void BarcodeFacade2::setRow2DCount(unsigned value) {
    row2DCount = std::min(value, PImage::kMaxSide);
}

void BarcodeFacade2::setECL(unsigned value) {
    ecl = std::min(value, 8u);
}

void BarcodeFacade2::setQRErrorCorrectionLevel(unsigned char value) {
    qrErrorCorrectionLevel = std::min<unsigned char>(value, 3);
}

void BarcodeFacade2::setGS1DatabarRowCount(unsigned char value) {
    gs1DatabarRowCount = std::min<unsigned char>(value, 100);
}

void BarcodeFacade2::setCodeSentinel(unsigned value) {
    codeSentinel = std::min(value, 100u);
}

void BarcodeFacade2::setDataType(int value) {
    dataType = value == 1 ? 1 : 0;
}

// The text must leave room for bars in a picture of the height set at this moment.
void BarcodeFacade2::setFontSize(unsigned value) {
    fontSize = std::min(value, rowCount / 2);
}

void BarcodeFacade2::setCodeText(const wchar_t* value) {
    if (value == nullptr) {
        throw BarcodeException::Unexpected();
    }
    codeText = value;
}

void BarcodeFacade2::listFonts() const {
    if (fontsListed) {
        return;
    }
    fontsListed = true;
    std::vector<PFontInfo> systemFonts = PSystemFontHelper::getFontsInfo();
    if (systemFonts.empty()) {
        return;
    }
    std::sort(systemFonts.begin(), systemFonts.end(),
              [](const PFontInfo& a, const PFontInfo& b) { return a.name < b.name; });
    {
        std::lock_guard<std::mutex> lock(mutex);
        fonts = std::move(systemFonts);
    }
    font = PFontInfo(kDefaultFont);
}

std::wstring BarcodeFacade2::getFont() const {
    listFonts();
    if (font.name.empty()) {
        throw BarcodeException::Unexpected();
    }
    return font.name;
}

void BarcodeFacade2::setFont(const std::wstring& name) {
    if (name.empty()) {
        throw BarcodeException::FontWrongValue();
    }
    listFonts();
    if (name != kDefaultFont) {
        std::lock_guard<std::mutex> lock(mutex);
        if (const PFontInfo* entry = entryNamed(fonts, name)) {
            font = *entry;
            return;
        }
    }
    // A font the device doesn't have falls back to the built-in one without complaint.
    font = PFontInfo(kDefaultFont);
}

bool BarcodeFacade2::findFont(const std::wstring& name) {
    listFonts();
    std::lock_guard<std::mutex> lock(mutex);
    return entryNamed(fonts, name) != nullptr;
}

unsigned BarcodeFacade2::getFontCount() const {
    listFonts();
    return static_cast<unsigned>(fonts.size());
}

std::wstring BarcodeFacade2::getFontAt(unsigned index) const {
    listFonts();
    return index < fonts.size() ? fonts[index].name : std::wstring();
}

std::wstring BarcodeFacade2::getAspectRatio() const {
    wchar_t text[129];
    std::swprintf(text, 129, L"%d:%d", aspectX, aspectY);
    return text;
}

void BarcodeFacade2::setAspectRatio(const wchar_t* text) {
    int x = 0;
    int y = 0;
    if (text == nullptr || std::swscanf(text, L"%d:%d", &x, &y) != 2) {
        throw BarcodeException::AspectRatioWrongValue();
    }
    aspectX = x;
    aspectY = y;
}

unsigned BarcodeFacade2::getCodeMinWidth() const {
    unsizeRoot(true);
    return root ? root->getMinWidth() : 0;
}

unsigned BarcodeFacade2::getCodeMinHeight() const {
    unsizeRoot(true);
    return root ? root->getMinHeight() : 0;
}

bool BarcodeFacade2::IsHintingEnabled() const {
    return static_cast<int>(fontSize) <= maxFontSizeForHinting;
}

bool BarcodeFacade2::IsBlackAndWhiteImage() const {
    return bgColor == 0x00FFFFFF && barColor == 0 && textColor == 0 && !bgTransparent;
}

bool BarcodeFacade2::IsHomemadeHinting() const {
    return IsHintingEnabled() && !IsBlackAndWhiteImage();
}

bool BarcodeFacade2::IsThresholdHinting() const {
    return IsHintingEnabled() && IsBlackAndWhiteImage();
}

}  // namespace BarcodeVelko
