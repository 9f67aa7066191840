#include "BarcodeLib/facade/barcode_facade2.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/facade/code_types.h"
#include "BarcodeLib/guarded.h"
#include "BarcodeLib/new_or_throw.h"
#include "BarcodeLib/strategy/abstract_barcode_strategy.h"
#include "BarcodeLib/tree/abstract_barcode_element.h"
#include "BarcodeLib/tree/barcode_space.h"
#include "BarcodeLib/tree/canvas_rotation.h"
#include "BarcodeLib/tree/leaf_sizes.h"
#include "layer/fonts/p_font_draw_helper.h"
#include "layer/foundation/base64.h"

namespace BarcodeVelko {

namespace {

// A value too long for any picture, shortened to one that a growing symbology takes or refuses
// as it would the whole: both ends as they are, each character of the middle once, and the
// length even or odd as the whole's (the 2 of 5 codes pair their digits).
std::wstring shortenedValue(const std::wstring& value) {
    const std::size_t end = BarcodeFacade2::kMaxValueLength / 2;
    if (value.size() <= 2 * end) {
        return value;
    }
    std::wstring shortened = value.substr(0, end);
    std::unordered_set<wchar_t> seen;
    for (std::size_t i = end; i + end < value.size(); ++i) {
        if (seen.insert(value[i]).second) {
            shortened += value[i];
        }
    }
    if (shortened.size() % 2 != value.size() % 2) {
        shortened += value[end];
    }
    return shortened + value.substr(value.size() - end);
}

// The symbologies read a code up to its first NUL, which only a Base64 value can hold once
// decoded: no type takes such a value, rather than the part before the NUL.
bool encodable(const std::wstring& code) {
    return code.find(L'\0') == std::wstring::npos;
}

}  // namespace

BarcodeFacade2::BarcodeFacade2() = default;

BarcodeFacade2::~BarcodeFacade2() = default;

int BarcodeFacade2::pictureFirst() const {
    return static_cast<int>(isTurned(canvasRotation) ? rowCount : columnCount);
}

int BarcodeFacade2::pictureSecond() const {
    return static_cast<int>(isTurned(canvasRotation) ? columnCount : rowCount);
}

std::wstring BarcodeFacade2::prepareCodeValue(const std::wstring& value, int dataType,
                                              int codeType) {
    if (dataType != 1) {
        return value;
    }
    std::wstring base64 = value;
    base64.erase(std::remove(base64.begin(), base64.end(), L'\n'), base64.end());
    base64.erase(std::remove(base64.begin(), base64.end(), L'\r'), base64.end());
    std::wstring text = base642Raw(base64);
    // The GS1 symbologies read a value that doesn't open with FNC1 (character 232) as a
    // bracketed element string.
    const bool gs1 = codeType >= 0 && codeType < static_cast<int>(kCodeTypeCount) &&
                     g_codeTypes[codeType].has(kGS1Value);
    if (gs1 && !text.empty() && text[0] != static_cast<wchar_t>(232)) {
        text.insert(0, L"{FMC1}");
    }
    return text;
}

bool BarcodeFacade2::tryStrategy(int type, const wchar_t* value, std::wstring& text,
                                 std::wstring& checkSymbol, AbstractBarcodeElement** element) {
    if (value == nullptr || element == nullptr) {
        throw BarcodeException::Unexpected();
    }
    text.clear();
    *element = nullptr;
    if (*value == L'\0') {
        throw BarcodeException::OutOfMemory();
    }
    SmartPtr<AbstractBarcodeStrategy> strategy(getStrategy(type));
    if (!guarded([&] { return strategy->calcCheckSymbol(value, checkSymbol); })) {
        return false;
    }
    const std::wstring code = value + checkSymbol;
    SmartPtr<AbstractBarcodeElement> tree;
    if (code.size() > kMaxValueLength
            ? !longCode(*strategy, type, code, value, pictureFirst(), pictureSecond(), tree)
            : !generateTree(*strategy, code.c_str(), pictureFirst(), pictureSecond(), tree)) {
        return false;
    }
    if (codeText.empty()) {
        codeText = codeShowCS ? code : std::wstring(value);
    }
    text = codeText;
    *element = tree.release();
    return true;
}

bool BarcodeFacade2::tryStrategyRaw(int type, const wchar_t* value, std::wstring& text,
                                    std::wstring& checkSymbol, AbstractBarcodeElement** element) {
    if (value == nullptr || element == nullptr) {
        throw BarcodeException::Unexpected();
    }
    text.clear();
    checkSymbol.clear();
    *element = nullptr;
    const std::wstring raw(value);
    if (raw.empty()) {
        return false;
    }
    const std::wstring stem = raw.substr(0, raw.size() - 1);
    SmartPtr<AbstractBarcodeStrategy> strategy(getStrategy(type));
    if (!guarded([&] { return strategy->calcCheckSymbol(stem.c_str(), checkSymbol); })) {
        return false;
    }
    // A raw value goes to the stacked symbologies with their own column and row counts.
    SmartPtr<AbstractBarcodeElement> tree;
    if (raw.size() > kMaxValueLength
            ? !longCode(*strategy, type, raw, stem, static_cast<int>(column2DCount),
                        static_cast<int>(row2DCount), tree)
            : !generateTree(*strategy, value, static_cast<int>(column2DCount),
                            static_cast<int>(row2DCount), tree)) {
        return false;
    }
    if (codeText.empty()) {
        codeText =
            codeShowCS ? raw : raw.substr(0, raw.size() - std::min(raw.size(), checkSymbol.size()));
    }
    text = codeText;
    *element = tree.release();
    return true;
}

bool BarcodeFacade2::generateTree(AbstractBarcodeStrategy& strategy, const wchar_t* code, int first,
                                  int second, SmartPtr<AbstractBarcodeElement>& tree) {
    if (textAlign == kAutoTextAlign) {
        textAlign = strategy.getDefaultTextAlign();
    }
    // A strategy's own failures are BarcodeExceptions; what the standard library throws out of
    // it is turned into one, so that the host only ever sees that family.
    AbstractBarcodeElement* generated = nullptr;
    const bool built = guarded([&] {
        return strategy.generate(code, &generated, static_cast<int>(textAlign),
                                 static_cast<int>(textPos), codeShowCS, first, second,
                                 static_cast<int>(ecl), strategyParam, codeText);
    });
    tree = generated;
    return built;
}

// No tree is built for a code that no picture can show. A symbology whose symbol grows with the
// value takes it if it takes the code in full by checkRaw and the value shortened, with its own
// check symbol, by generate; then a stand-in wider than any picture makes the picture say "size
// too small", as the whole tree did. Every other symbology refuses it, as its capacity would.
bool BarcodeFacade2::longCode(AbstractBarcodeStrategy& strategy, int type, const std::wstring& code,
                              const std::wstring& stem, int first, int second,
                              SmartPtr<AbstractBarcodeElement>& tree) {
    if (!g_codeTypes[type].has(kGrowsWithValue) ||
        !guarded([&] { return strategy.checkRaw(code.c_str()); })) {
        // What generateTree does before the strategy has its say.
        if (textAlign == kAutoTextAlign) {
            textAlign = strategy.getDefaultTextAlign();
        }
        return false;
    }
    const std::wstring shortened = shortenedValue(stem);
    std::wstring check;
    if (!guarded([&] { return strategy.calcCheckSymbol(shortened.c_str(), check); })) {
        return false;
    }
    // The shortened code's text is not the code's.
    const std::wstring text = codeText;
    SmartPtr<AbstractBarcodeElement> shortenedTree;
    const bool taken =
        generateTree(strategy, (shortened + check).c_str(), first, second, shortenedTree);
    codeText = text;
    if (taken) {
        tree = newOrThrow<BarcodeSpace>(PImage::kMaxSide + 1, 1u, false, false);
    }
    return taken;
}

int BarcodeFacade2::getCodeTypeByValue(const std::wstring& value, int valueDataType) {
    searchTree = nullptr;
    searchInputs.reset();
    if (value.empty()) {
        return kCodeTypeCount;
    }
    // kCodeTypeCount is no GS1 type, so the trials see the value without "{FMC1}".
    const std::wstring prepared = prepareCodeValue(value, valueDataType, kCodeTypeCount);
    if (!encodable(prepared)) {
        return static_cast<int>(kSearchFallback);
    }
    std::wstring text;
    std::wstring checkSymbol;
    for (int type = 0; type < static_cast<int>(kCodeTypeCount); ++type) {
        AbstractBarcodeElement* element = nullptr;
        GenerationInputs inputs = inputsOf(type, false, prepared);
        bool found = tryStrategy(type, prepared.c_str(), text, checkSymbol, &element);
        SmartPtr<AbstractBarcodeElement> tree(element);
        if (!found) {
            inputs = inputsOf(type, true, prepared);
            found = tryStrategyRaw(type, prepared.c_str(), text, checkSymbol, &element);
            tree = element;
        }
        if (found) {
            // The generation that follows the search takes this tree if it asks the same.
            inputs.textAlignAfter = textAlign;
            inputs.textAfter = codeText;
            inputs.checkSymbol = checkSymbol;
            searchInputs = inputs;
            searchTree = tree.release();
            return type;
        }
    }
    // Nothing took the value: the fallback is named, and its picture will tell what went wrong.
    return static_cast<int>(kSearchFallback);
}

BarcodeFacade2::GenerationInputs BarcodeFacade2::inputsOf(int type, bool raw,
                                                          const std::wstring& value) const {
    GenerationInputs inputs;
    inputs.type = type;
    inputs.raw = raw;
    inputs.value = value;
    inputs.textAlign = textAlign;
    inputs.textPos = textPos;
    inputs.showCS = codeShowCS;
    // A raw value goes to the stacked symbologies with their own column and row counts.
    inputs.first = raw ? static_cast<int>(column2DCount) : pictureFirst();
    inputs.second = raw ? static_cast<int>(row2DCount) : pictureSecond();
    inputs.ecl = ecl;
    inputs.param = paramFor(type);
    inputs.text = codeText;
    return inputs;
}

bool BarcodeFacade2::sameTree(const GenerationInputs& made, const GenerationInputs& wanted) {
    return made.type == wanted.type && made.raw == wanted.raw && made.value == wanted.value &&
           (wanted.textAlign == made.textAlign || wanted.textAlign == made.textAlignAfter) &&
           made.textPos == wanted.textPos && made.showCS == wanted.showCS &&
           made.first == wanted.first && made.second == wanted.second && made.ecl == wanted.ecl &&
           made.param == wanted.param &&
           (wanted.text == made.text || wanted.text == made.textAfter);
}

bool BarcodeFacade2::attempt(int type, bool raw, const std::wstring& value, std::wstring& text,
                             std::wstring& checkSymbol, AbstractBarcodeElement** element,
                             GenerationInputs& made) {
    made = inputsOf(type, raw, value);
    const GenerationInputs* earlier = nullptr;
    if (rootInputs && sameTree(*rootInputs, made)) {
        earlier = &*rootInputs;
        *element = root.get();
        readsAsGenerated = !picturing;
    } else if (searchInputs && sameTree(*searchInputs, made)) {
        earlier = &*searchInputs;
        *element = searchTree.release();
    }
    if (earlier) {
        // What generating again would leave.
        made = *earlier;
        strategyParam = made.param;
        textAlign = made.textAlignAfter;
        codeText = made.textAfter;
        text = made.textAfter;
        checkSymbol = made.checkSymbol;
        searchInputs.reset();
        return true;
    }
    const bool built = raw ? tryStrategyRaw(type, value.c_str(), text, checkSymbol, element)
                           : tryStrategy(type, value.c_str(), text, checkSymbol, element);
    made.textAlignAfter = textAlign;
    made.textAfter = codeText;
    made.checkSymbol = checkSymbol;
    return built;
}

bool BarcodeFacade2::generateCode() {
    if (codeAuto) {
        const int found = getCodeTypeByValue(codeValue, dataType);
        if (found < static_cast<int>(kCodeTypeCount)) {
            codeType = static_cast<unsigned>(found);
            codeAuto = false;
        }
    }
    int type = static_cast<int>(codeType);
    std::wstring value;
    std::wstring checkSymbol;
    std::wstring text;
    bool result = false;
    // The walk over the types runs only while a search is pending, which only an empty demo
    // value leaves behind. It tries the starting type and then each type of the cycle at most
    // once: a type behind the cycle never comes round again to end it.
    const unsigned cycle = codeTypeCycleLength();
    for (unsigned round = 0; round <= cycle; ++round) {
        AbstractBarcodeElement* element = nullptr;
        GenerationInputs made;
        bool built = false;
        if (demoMode) {
            SmartPtr<AbstractBarcodeStrategy> strategy(getStrategy(type));
            if (strategy) {
                value = codeIsRaw ? strategy->getRawDemoValue() : strategy->getDemoValue();
                built = attempt(type, codeIsRaw, value, text, checkSymbol, &element, made);
                // The demo value stands in for the host's value; the type stays as written.
                if (built) {
                    codeValue = value;
                }
            }
        } else {
            if (codeValue.empty()) {
                break;
            }
            value = prepareCodeValue(codeValue, dataType, type);
            if (encodable(value) && (!codeIsRaw || codeValue.size() >= 2)) {
                built = attempt(type, codeIsRaw, value, text, checkSymbol, &element, made);
            }
            if (built) {
                codeType = static_cast<unsigned>(type);
            }
        }
        if (built) {
            if (element != root.get()) {
                root = element;
                forgetRootSizes();
            }
            rootInputs = made;
            codeCheckSymbol = checkSymbol;
            codeText = text;
            result = true;
            break;
        }
        type = (type + 1) % static_cast<int>(cycle);
        if (!codeAuto || type == static_cast<int>(codeType)) {
            break;
        }
    }
    return result && root;
}

void BarcodeFacade2::setCodeValue(const wchar_t* value) {
    if (value == nullptr) {
        throw BarcodeException::Unexpected();
    }
    codeValue = value;
    codeText.clear();
    demoMode = false;
    codeValid = true;
    if (generateCode()) {
        return;
    }
    // What fails as a plain value may be a raw one, and the reverse.
    codeIsRaw = !codeIsRaw;
    if (!generateCode()) {
        codeIsRaw = !codeIsRaw;
        codeValid = false;
    }
}

void BarcodeFacade2::setCodeType(unsigned type) {
    if (type >= kCodeTypeCount) {
        throw BarcodeException::CodeType2WrongValue();
    }
    codeType = type;
    codeText.clear();
    codeValid = false;
    demoMode = true;
    textAlign = kAutoTextAlign;
    generateCode();
}

void BarcodeFacade2::setCodeShowCS(bool flag) {
    codeShowCS = flag;
    generateCode();
}

void BarcodeFacade2::setCodeIsRaw(bool flag) {
    if (flag == codeIsRaw) {
        return;
    }
    codeIsRaw = flag;
    if (flag) {
        codeValue += codeCheckSymbol;
    } else if (!codeCheckSymbol.empty() && !codeValue.empty()) {
        codeValue.pop_back();
    }
    if (codeValue.empty()) {
        throw BarcodeException::OutOfMemory();
    }
}

}  // namespace BarcodeVelko
