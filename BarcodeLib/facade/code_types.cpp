#include "BarcodeLib/facade/code_types.h"

#include "BarcodeLib/code16k/strategy_code16k.h"
#include "BarcodeLib/databar/strategy_gs1_databar_expanded_stacked.h"
#include "BarcodeLib/databar/strategy_rss14.h"
#include "BarcodeLib/datamatrix/strategy_data_matrix.h"
#include "BarcodeLib/linear/strategy_codabar.h"
#include "BarcodeLib/linear/strategy_code128.h"
#include "BarcodeLib/linear/strategy_code39.h"
#include "BarcodeLib/linear/strategy_code39_ext.h"
#include "BarcodeLib/linear/strategy_code93.h"
#include "BarcodeLib/linear/strategy_ean128.h"
#include "BarcodeLib/linear/strategy_ean13.h"
#include "BarcodeLib/linear/strategy_ean13_addon2.h"
#include "BarcodeLib/linear/strategy_ean13_addon5.h"
#include "BarcodeLib/linear/strategy_ean8.h"
#include "BarcodeLib/linear/strategy_interleaved2of5.h"
#include "BarcodeLib/linear/strategy_itf14.h"
#include "BarcodeLib/linear/strategy_standard2of5.h"
#include "BarcodeLib/pdf417/strategy_pdf417.h"
#include "BarcodeLib/qr/strategy_qr.h"

namespace BarcodeVelko {

namespace {
using S = StrategySetting;
using T = CodeType;
constexpr CodeTypeTrait Plain = kPlainValue;
constexpr CodeTypeTrait GS1 = kGS1Value;
constexpr CodeTypeTrait Cycle = kInCycle;
constexpr CodeTypeTrait Grows = kGrowsWithValue;
constexpr CodeTypeTrait Logo = kTakesLogo;
}  // namespace

constexpr CodeTypeRow g_codeTypes[kCodeTypeCount] = {
    // type, name, strategy, argument, setting passed to generate, traits, demo width, height
    {T::EAN8, "ean8", &makeStrategy<StrategyEAN8>, 0, S::None, Cycle, 150, 100},
    {T::EAN13, "ean13", &makeStrategy<StrategyEAN13>, 0, S::None, Cycle, 150, 100},
    {T::EAN128, "ean128", &makeStrategy<StrategyEAN128>, 0, S::None, GS1 | Cycle | Grows, 260, 100},
    {T::Code39, "code39", &makeStrategy<StrategyCode39>, 0, S::None, Cycle | Grows, 150, 100},
    {T::Code128, "code128", &makeStrategy<StrategyCode128>, 0, S::None, Cycle | Grows, 260, 100},
    {T::Code16K, "code16k", &makeStrategy<StrategyCode16k>, 0, S::None, Cycle, 250, 90},
    {T::PDF417, "pdf417", &makeStrategy<StrategyPDF417>, 0, S::None, Cycle, 600, 100},
    {T::Standard2of5, "standard2of5", &makeStrategy<StrategyStandard2of5>, 0, S::None,
     Cycle | Grows, 150, 100},
    {T::Interleaved2of5, "interleaved2of5", &makeStrategy<StrategyInterleaved2of5>, 0, S::None,
     Cycle | Grows, 150, 100},
    {T::Code39Ext, "code39ext", &makeStrategy<StrategyCode39Ext>, 0, S::None, Cycle | Grows, 200,
     100},
    {T::Code93, "code93", &makeStrategy<StrategyCode93>, 0, S::None, Cycle | Grows, 150, 100},
    {T::ITF14, "itf14", &makeStrategy<StrategyITF14>, 0, S::None, Cycle, 150, 100},
    {T::RSS14, "rss14", &makeStrategy<StrategyRSS14>, 0, S::None, Cycle, 300, 100},
    {T::Codabar, "codabar", &makeStrategy<StrategyCodaBar>, 0, S::None, Cycle | Grows, 150, 100},
    {T::EAN13AddOn2, "ean13addon2", &makeStrategy<StrategyEAN13AddOn2>, 0, S::None, Cycle, 150,
     100},
    {T::EAN13AddOn5, "ean13addon5", &makeStrategy<StrategyEAN13AddOn5>, 0, S::None, Cycle, 200,
     100},
    {T::QR, "qr", &makeStrategy<StrategyQR>, 0, S::QRErrorCorrectionLevel, Logo, 150, 150},
    {T::GS1DatabarExpandedStacked, "gs1databar", &makeStrategy<StrategyGS1DatabarExpandedStacked>,
     0, S::GS1DatabarRowCount, GS1, 220, 80},
    {T::DataMatrix0, "datamatrix-ascii", &makeStrategy<StrategyDataMatrix>, 0, S::None, Plain, 150,
     150},
    {T::DataMatrix1, "datamatrix-base256", &makeStrategy<StrategyDataMatrix>, 1, S::None, Plain,
     150, 150},
    {T::DataMatrix2, "datamatrix-text", &makeStrategy<StrategyDataMatrix>, 2, S::None, Plain, 150,
     150},
    {T::DataMatrix3, "datamatrix-c40", &makeStrategy<StrategyDataMatrix>, 3, S::None, Plain, 150,
     150},
    // X12 has no "<", which the shared Data Matrix demo value holds.
    {T::DataMatrix4, "datamatrix-x12", &makeStrategy<StrategyDataMatrix>, 4, S::None, Plain, 150,
     150, "30Q324343430794>OQQ"},
    {T::DataMatrix5, "datamatrix-edifact", &makeStrategy<StrategyDataMatrix>, 5, S::None, Plain,
     150, 150},
    {T::DataMatrix6, "datamatrix-gs1", &makeStrategy<StrategyDataMatrix>, 6, S::None, GS1, 150,
     150},
};

namespace {
constexpr bool rowsInTypeOrder() {
    for (unsigned i = 0; i < kCodeTypeCount; ++i) {
        if (static_cast<unsigned>(g_codeTypes[i].type) != i) {
            return false;
        }
    }
    return true;
}
static_assert(rowsInTypeOrder(), "a row stands at the index of its code type");
}  // namespace

unsigned codeTypeCycleLength() {
    unsigned length = 0;
    while (length < kCodeTypeCount && g_codeTypes[length].has(kInCycle)) {
        ++length;
    }
    return length;
}

}  // namespace BarcodeVelko
