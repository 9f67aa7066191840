#pragma once

#include <string>

namespace BarcodeVelko {

class AbstractBarcodeElement;
class AbstractBarcodeVisitor;

// What a symbology offers the facade. Strategies are stateless and live for one call.
class AbstractBarcodeStrategy {
public:
    // The string is a valid raw form: the value with its check symbol behind it.
    virtual bool checkRaw(const wchar_t* code) = 0;
    // The value is valid; check receives the check symbol, empty where none is shown.
    virtual bool calcCheckSymbol(const wchar_t* value, std::wstring& check) = 0;
    // Builds the tree, in modules, for the raw form code. False when code doesn't encode.
    virtual bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign,
                          int textPos, bool showCS, int first, int second, int ecl, int param,
                          std::wstring& codeText) = 0;
    virtual const wchar_t* getDemoValue() = 0;
    virtual const wchar_t* getRawDemoValue() { return getDemoValue(); }
    virtual unsigned getDefaultTextAlign() = 0;
    // A new visitor that stretches the tree over the canvas; the caller owns it.
    virtual AbstractBarcodeVisitor* sizeVisitor(AbstractBarcodeElement* root, unsigned canvasWidth,
                                                unsigned canvasHeight, unsigned fontSize,
                                                unsigned sentinel, unsigned aspectX,
                                                unsigned aspectY) = 0;
    virtual ~AbstractBarcodeStrategy() = default;

protected:
    // The first steps of a generate: throws Unexpected for a null element and clears *element,
    // then answers checkRaw(code).
    bool beginGenerate(const wchar_t* code, AbstractBarcodeElement** element);
    // The same, throwing TextAlignWrongValue for a textAlign outside 0..6 before code is read.
    bool beginGenerate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign);
    // calcCheckSymbol where none is shown: a value is valid as its own raw form, and check is
    // then emptied.
    bool calcNoCheckSymbol(const wchar_t* value, std::wstring& check);
};

}  // namespace BarcodeVelko
