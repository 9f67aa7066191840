// zxing-cpp 1.4 asks every includer to choose the UTF-8 text() of its next release.
#define ZX_USE_UTF8

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "BarcodeLib/facade/barcode_facade2.h"
#include "host/text_forms.h"
#include "tests/support/scan_harness.h"
#include "tools/cli/dmtx_read.h"

using namespace BarcodeVelko;
using VelkoTest::Picture;

namespace {

const unsigned kFirstType = 18;
const unsigned kLargestSide = 144;

struct Box {
    unsigned left, top, width, height;
};

Box darkBox(const Picture& picture) {
    const VelkoTest::Box box =
        VelkoTest::boxOf(picture, [](unsigned pixel) { return (pixel & 0xFFFFFF) == 0; });
    return {box.left, box.top, box.right - box.left, box.bottom - box.top};
}

// The symbol has no quiet zone of its own and may fill its picture; printed, the label around
// it gives it one. zxing-cpp 1.4 also looks for a Data Matrix from the middle of the picture
// out and misses one at the top of a tall picture, so the readers get the symbol's own box in a
// white margin.
Picture onLabel(const Picture& picture) {
    const Box box = darkBox(picture);
    const unsigned margin = std::max(box.width, box.height) / 8 + 4;
    Picture label;
    label.width = box.width + 2 * margin;
    label.height = box.height + 2 * margin;
    label.rgba.assign(static_cast<size_t>(label.width) * label.height * 4, 0xFF);
    for (unsigned y = 0; y < box.height; ++y) {
        std::copy_n(
            &picture.rgba[(static_cast<size_t>(y + box.top) * picture.width + box.left) * 4],
            box.width * 4,
            &label.rgba[(static_cast<size_t>(y + margin) * label.width + margin) * 4]);
    }
    return label;
}

VelkoTest::Reading readDataMatrix(const Picture& drawn) {
    return VelkoTest::readSymbol(onLabel(drawn), ZXing::BarcodeFormat::DataMatrix);
}

// zxing-cpp 1.4 expects the error correction of the 144 x 144 size in another order than
// libdmtx writes it, so that size is read back with libdmtx's own reader.
std::string readWithLibdmtx(const Picture& drawn) {
    Picture picture = onLabel(drawn);
    return VelkoCli::readWithLibdmtx(picture.rgba.data(), static_cast<int>(picture.width),
                                     static_cast<int>(picture.height), DmtxPack32bppRGBX);
}

std::string readBack(const Picture& picture, unsigned side) {
    return side == kLargestSide ? readWithLibdmtx(picture) : readDataMatrix(picture).bytes;
}

std::wstring repeat(const wchar_t* alphabet, size_t length) {
    const std::wstring letters(alphabet);
    std::wstring text;
    for (size_t i = 0; i < length; ++i) {
        text += letters[i % letters.size()];
    }
    return text;
}

// Room for the largest symbol at two pixels a module, centred.
Picture drawCentred(BarcodeFacade2& facade, unsigned type, const std::wstring& value) {
    VelkoTest::setUp(facade, type, 2 * kLargestSide + 24, 2 * kLargestSide + 24);
    facade.setBarVerticalAlign(2);
    facade.setCodeValue(value.c_str());
    return VelkoTest::render(facade);
}

void expectErrorPicture(BarcodeFacade2& facade, const Picture& picture) {
    EXPECT_EQ(facade.getLastError().code(), 3);
    EXPECT_EQ(picture.width, 200u);
    EXPECT_EQ(picture.height, 100u);
}

}  // namespace

// Each alphabet that the scheme takes, and the most that the largest square size holds; one
// character more, or one the scheme lacks, gives the error picture.
TEST(DataMatrixScan, EveryTypeReadsBackUpToItsLargestSize) {
    const wchar_t* const kDigits = L"0123456789";
    const wchar_t* const kUpper = L"ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const wchar_t* const kLower = L"abcdefghijklmnopqrstuvwxyz";
    const wchar_t* const kMixed = L"Ab1 x-Z9.q";
    const wchar_t* const kUtf8 = L"\u00e9\u00e0\u041f\u20ac";
    const struct {
        unsigned type;
        std::vector<const wchar_t*> alphabets;
        const wchar_t* fill;  // fills the largest size ...
        size_t most;          // ... with this many characters
        std::vector<const wchar_t*> refused;
    } cases[] = {
        {18, {kDigits, kUpper, kLower, kMixed, kUtf8}, kDigits, 3116, {L""}},
        {19, {kDigits, kUpper, kLower, kMixed, kUtf8}, kLower, 1556, {}},
        {20, {kDigits, kUpper, kLower, kMixed, kUtf8}, kLower, 2335, {}},
        {21, {kDigits, kUpper, kLower, kMixed, kUtf8}, kUpper, 2335, {}},
        {22, {kDigits, kUpper, L"AB1 *>Z9"}, kUpper, 2335, {L"Lower case", L"\u041f\u0440\u0438"}},
        {23,
         {kDigits, kUpper, L"AB1 ?-Z9.Q@^"},
         kUpper,
         2076,
         {L"lower case", L"\u00e9\u00e9\u00e9"}},
    };
    for (const auto& c : cases) {
        for (const wchar_t* alphabet : c.alphabets) {
            const std::wstring value = repeat(alphabet, 45);
            BarcodeFacade2 facade;
            const Picture picture = drawCentred(facade, c.type, value);
            ASSERT_EQ(facade.getLastError().code(), 0) << c.type << " " << wstr2str(value);
            EXPECT_EQ(readBack(picture, facade.getCodeMinWidth()), wstr2str(value)) << c.type;
        }
        for (const size_t length : {c.most / 2, c.most, c.most + 1}) {
            const std::wstring value = repeat(c.fill, length);
            SCOPED_TRACE(std::to_string(c.type) + ": " + std::to_string(length));
            BarcodeFacade2 facade;
            const Picture picture = drawCentred(facade, c.type, value);
            if (length > c.most) {
                expectErrorPicture(facade, picture);
                continue;
            }
            EXPECT_EQ(facade.getCodeMinWidth() == kLargestSide, length == c.most);
            EXPECT_EQ(readBack(picture, facade.getCodeMinWidth()), wstr2str(value));
        }
        for (const wchar_t* value : c.refused) {
            BarcodeFacade2 facade;
            expectErrorPicture(facade, drawCentred(facade, c.type, value));
        }
    }
}

// FNC1 first makes the reader name the symbol GS1; a separator ends each variable-length
// element that something follows, and nothing else.
TEST(DataMatrixScan, GS1ElementStringsReadWithTheirSeparators) {
    const std::string gs = "\x1d";
    const struct {
        unsigned type;
        const wchar_t* value;
        const char* symbology;
        std::string bytes;
    } cases[] = {
        {24, L"(01)04600822901507(11)161109(30)2434", "]d2", "010460082290150711161109302434"},
        {24, L"(10)ABC(21)123", "]d2", "10ABC" + gs + "21123"},
        {24, L"(30)1(10)A", "]d2", "301" + gs + "10A"},
        {24, L"(8001)12345678901234(10)A", "]d2", "800112345678901234" + gs + "10A"},
        {24, L"(01)04600822901507(10)LOT 7(17)261231(21)S-42", "]d2",
         "010460082290150710LOT 7" + gs + "1726123121S-42"},
        {24, L"{FMC1}0104600822901507", "]d2", "0104600822901507"},
        {18, L"(10)ABC(21)123", "]d1", "(10)ABC(21)123"},
    };
    for (const auto& c : cases) {
        BarcodeFacade2 facade;
        const VelkoTest::Reading reading = readDataMatrix(drawCentred(facade, c.type, c.value));
        EXPECT_EQ(facade.getLastError().code(), 0);
        EXPECT_EQ(reading.symbology, c.symbology) << wstr2str(c.value);
        EXPECT_EQ(reading.bytes, c.bytes);
    }
}

// Square modules in a picture of any shape and any aspect ratio: the largest whole scale that
// fits, the symbol at the top and centred across; every rotation reads.
TEST(DataMatrixScan, ModulesAreSquareWhateverTheShape) {
    const struct {
        const wchar_t* aspect;
        unsigned width, height, rotation, scale;
    } cases[] = {
        {L"1:1", 150, 150, 0, 9},   {L"1:4", 150, 150, 90, 9}, {L"4:1", 300, 100, 180, 6},
        {L"1:4", 100, 300, 270, 6}, {L"3:2", 64, 200, 0, 4},   {L"0:0", 40, 33, 90, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.width) + " x " + std::to_string(c.height) + " at " +
                     std::to_string(c.rotation));
        BarcodeFacade2 facade;
        VelkoTest::setUp(facade, kFirstType, c.width, c.height, c.rotation);
        facade.setAspectRatio(c.aspect);
        facade.setCodeValue(L"123456789012345678");  // 16 x 16
        const Picture picture = VelkoTest::render(facade);
        ASSERT_EQ(facade.getLastError().code(), 0);
        const Box box = darkBox(picture);
        EXPECT_EQ(picture.width, c.width);
        EXPECT_EQ(box.width, 16 * c.scale);
        EXPECT_EQ(box.height, 16 * c.scale);
        EXPECT_EQ(readDataMatrix(picture).bytes, "123456789012345678");
    }
}
