#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "BarcodeLib/strategy/abstract_barcode_strategy.h"
#include "BarcodeLib/tree/abstract_barcode_element.h"

// Test helpers that look into a symbol's tree of bars, spaces and texts.
namespace VelkoTest {

// A leaf as a test sees it, in the order of drawing.
struct Leaf {
    char kind;         // '1' bar, '0' space, 'T' text
    unsigned modules;  // the rect's own minimum width, whatever a size visitor set
    unsigned scaleX;
    unsigned height;
    bool control;
    bool last;
    unsigned customData;
    std::string text;  // narrowed; the tests' texts are ASCII
};

// strategy's tree of raw in layout textAlign, as the facade asks for it; a refusal fails the
// test and gives no tree. codeText, if given, goes in and comes out as generate() leaves it.
std::unique_ptr<BarcodeVelko::AbstractBarcodeElement> build(
    BarcodeVelko::AbstractBarcodeStrategy& strategy, const std::wstring& raw, int textAlign = 0,
    std::wstring* codeText = nullptr, bool showCS = true);

// True if strategy refuses raw as it must: generate() answers false, sets no tree and leaves the
// codeText alone.
bool refuses(BarcodeVelko::AbstractBarcodeStrategy& strategy, const std::wstring& raw,
             int textAlign = 0);

// Sizes the tree under root with the strategy's visitor for a canvas of width x height pixels.
void sizeTree(BarcodeVelko::AbstractBarcodeStrategy& strategy,
              BarcodeVelko::AbstractBarcodeElement* root, unsigned width, unsigned height,
              unsigned fontSize, unsigned sentinel = 30);

std::vector<Leaf> leavesOf(BarcodeVelko::AbstractBarcodeElement* root);

// The runs that keep selects as a module string, '1' dark and '0' light; by default all runs
// that aren't control runs, which is the bars row of a one-row symbol.
std::string modules(
    const std::vector<Leaf>& leaves,
    const std::function<bool(const Leaf&)>& keep = [](const Leaf& leaf) { return !leaf.control; });

// The texts in drawing order, separated by '|'.
std::string textsOf(const std::vector<Leaf>& leaves);

// The text row of an EAN layout: "T<modules>:<text>" and the guards' patterns, separated by '|'.
std::string textRowOf(const std::vector<Leaf>& leaves);

// The code of the BarcodeException that action throws; 0 if it throws none.
unsigned thrownCode(const std::function<void()>& action);

// ASCII text as a narrow string, for messages and comparisons with what a reader returns.
std::string narrow(const std::wstring& text);

}  // namespace VelkoTest
