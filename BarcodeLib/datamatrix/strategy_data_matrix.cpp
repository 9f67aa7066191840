#include "BarcodeLib/datamatrix/strategy_data_matrix.h"

#include <dmtx.h>

#include <vector>

#include "BarcodeLib/datamatrix/visitor_data_matrix.h"
#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/guarded.h"
#include "BarcodeLib/new_or_throw.h"
#include "BarcodeLib/smart_ptr.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/text_layout.h"
#include "BarcodeLib/tree/barcode_column.h"
#include "BarcodeLib/tree/barcode_row.h"
#include "layer/GS1/gs1.h"
#include "layer/foundation/string_helpers.h"
#include "layer/foundation/utf8.h"

namespace BarcodeVelko {

namespace {

// The byte that stands for FNC1 in a GS1 message, and the group separator between elements.
const unsigned char kFnc1 = 232;
const char kGroupSeparator = 29;

struct SchemeRow {
    int dmtxScheme;
    int fnc1;
};

// By scheme number; the library numbers its schemes in another order.
const SchemeRow g_aSchemes[StrategyDataMatrix::kSchemeCount] = {
    {DmtxSchemeAscii, DmtxUndefined}, {DmtxSchemeBase256, DmtxUndefined},
    {DmtxSchemeText, DmtxUndefined},  {DmtxSchemeC40, DmtxUndefined},
    {DmtxSchemeX12, DmtxUndefined},   {DmtxSchemeEdifact, DmtxUndefined},
    {DmtxSchemeAscii, kFnc1},
};

struct EncoderRelease {
    void operator()(DmtxEncode* encoder) const { dmtxEncodeDestroy(&encoder); }
};

using EncoderPtr = std::unique_ptr<DmtxEncode, EncoderRelease>;

// An encoder that draws one pixel a module with no margin, in ASCII until a scheme is set.
EncoderPtr newEncoder() {
    EncoderPtr encoder(dmtxEncodeCreate());
    if (!encoder) {
        throw BarcodeException::OutOfMemory();
    }
    dmtxEncodeSetProp(encoder.get(), DmtxPropScheme, DmtxSchemeAscii);
    dmtxEncodeSetProp(encoder.get(), DmtxPropMarginSize, 0);
    dmtxEncodeSetProp(encoder.get(), DmtxPropModuleSize, 1);
    return encoder;
}

}  // namespace

struct StrategyDataMatrixPrivate {
    EncoderPtr encoder = newEncoder();
    int scheme = -1;
};

StrategyDataMatrix::StrategyDataMatrix(int scheme) : d(newOrThrow<StrategyDataMatrixPrivate>()) {
    setScheme(scheme);
}

StrategyDataMatrix::~StrategyDataMatrix() = default;

void StrategyDataMatrix::setScheme(int scheme) {
    if (scheme < 0 || scheme >= kSchemeCount) {
        throw BarcodeException::Unexpected();
    }
    dmtxEncodeSetProp(d->encoder.get(), DmtxPropScheme, g_aSchemes[scheme].dmtxScheme);
    d->scheme = scheme;
}

int StrategyDataMatrix::scheme() const {
    return d->scheme;
}

bool StrategyDataMatrix::checkRaw(const wchar_t* code) {
    if (!code) {
        throw BarcodeException::Unexpected();
    }
    return true;
}

bool StrategyDataMatrix::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    return calcNoCheckSymbol(value, check);
}

bool StrategyDataMatrix::generate(const wchar_t* code, AbstractBarcodeElement** element, int, int,
                                  bool, int, int, int, int, std::wstring& codeText) {
    if (!element || !code) {
        throw BarcodeException::Unexpected();
    }
    *element = nullptr;
    if (!codeText.empty()) {
        codeText.clear();
    }
    return guarded([&] {
        const std::string bytes = message(code);
        return !bytes.empty() && encode(bytes, element);
    });
}

std::string StrategyDataMatrix::message(const wchar_t* code) const {
    std::string bytes = wstr2str(code);
    if (d->scheme != kSchemeGS1) {
        return bytes;
    }
    // A value that isn't a bracketed element string comes back as it was, so that one already
    // in raw form passes with its own markers.
    bytes = text2gs1raw(bytes, nullptr);
    bytes = replace(bytes, kGS1StartMarker, std::string(1, static_cast<char>(kFnc1)));
    return replace(bytes, kGS1SeparatorMarker, std::string(1, kGroupSeparator));
}

bool StrategyDataMatrix::encode(const std::string& bytes, AbstractBarcodeElement** element) {
    // The library keeps the picture of an encoding until it is destroyed and doesn't free it
    // when it encodes again, so a second message gets an encoder of its own.
    if (d->encoder->image) {
        d->encoder = newEncoder();
        setScheme(d->scheme);
    }
    DmtxEncode* encoder = d->encoder.get();
    dmtxEncodeSetProp(encoder, DmtxPropFnc1, g_aSchemes[d->scheme].fnc1);

    std::vector<unsigned char> buffer(bytes.begin(), bytes.end());
    buffer.push_back(0);
    if (!dmtxEncodeDataMatrix(encoder, static_cast<int>(bytes.size()), buffer.data())) {
        return false;
    }

    DmtxImage* image = encoder->image;
    const int width = image ? dmtxImageGetProp(image, DmtxPropWidth) : 0;
    const int height = image ? dmtxImageGetProp(image, DmtxPropHeight) : 0;
    const int pixelBytes = image ? dmtxImageGetProp(image, DmtxPropBytesPerPixel) : 0;
    if (width <= 0 || height <= 0 || pixelBytes <= 0 || !image->pxl) {
        throw BarcodeException::Unexpected();
    }

    SmartPtr<BarcodeColumn> column(newOrThrow<BarcodeColumn>());
    std::string line(static_cast<size_t>(width), '0');
    const unsigned char* pixel = image->pxl;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x, pixel += pixelBytes) {
            line[static_cast<size_t>(x)] = *pixel == 0 ? '1' : '0';
        }
        SmartPtr<BarcodeRow> row(newOrThrow<BarcodeRow>());
        encode_line(line.c_str(), row.get(), false, 0, false);
        column->add(row.get());
        row.release();
    }
    *element = column.release();
    return true;
}

const wchar_t* StrategyDataMatrix::getDemoValue() {
    return d->scheme == kSchemeGS1 ? L"(01)04600822901507(11)161109(30)2434"
                                   : L"30Q324343430794<OQQ";
}

unsigned StrategyDataMatrix::getDefaultTextAlign() {
    return kTextCentre;
}

AbstractBarcodeVisitor* StrategyDataMatrix::sizeVisitor(AbstractBarcodeElement* root,
                                                        unsigned canvasWidth, unsigned canvasHeight,
                                                        unsigned, unsigned, unsigned, unsigned) {
    if (!root) {
        throw BarcodeException::Unexpected();
    }
    return newOrThrow<VisitorDataMatrix>(canvasWidth, canvasHeight, root->getMinWidth(),
                                         root->getMinHeight());
}

}  // namespace BarcodeVelko
