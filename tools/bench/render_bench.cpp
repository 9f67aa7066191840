#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/png/dm2png32.h"

namespace {

using BarcodeVelko::BarcodeFacade2;

// What GetBarcode costs apart from the host: the picture and its PNG bytes.
std::vector<unsigned char> renderPng(BarcodeFacade2& facade) {
    const PImage image = facade.draw();
    return BarcodeVelko::DM2PNG32(image.pixelData(), image.width(), image.height(),
                                  image.bytesPerPixel(), nullptr);
}

// The symbology and value at the picture size of the two arguments, width and height.
void setUp(BarcodeFacade2& facade, const benchmark::State& state, unsigned codeType,
           const std::wstring& value) {
    facade.setCodeAuto(false);
    facade.setCodeType(codeType);
    facade.setColumnCount(static_cast<unsigned>(state.range(0)));
    facade.setRowCount(static_cast<unsigned>(state.range(1)));
    facade.setCodeValue(value.c_str());
}

void renderPicture(benchmark::State& state, unsigned codeType, const std::wstring& value) {
    BarcodeFacade2 facade;
    setUp(facade, state, codeType, value);
    for (auto _ : state) {
        std::vector<unsigned char> png = renderPng(facade);
        benchmark::DoNotOptimize(png.data());
    }
    if (facade.getLastError().code() != 0) {
        state.SkipWithError("the picture is an error picture");
    }
}

void Code39(benchmark::State& state) {
    renderPicture(state, 3, L"CODE39");
}

BENCHMARK(Code39)
    ->Args({150, 100})
    ->Args({300, 150})
    ->Args({1000, 500})
    ->Unit(benchmark::kMicrosecond);

// A shipping text of that many bytes: 20 take version 2 at level M, 200 version 10 at level M, 2300
// version 40.
std::wstring qrMessage(size_t bytes) {
    static const wchar_t kText[] = L"Ship to: 221B Baker Street, London NW1 6XE; ";
    std::wstring text;
    for (size_t i = 0; i < bytes; ++i) {
        text += kText[i % (sizeof(kText) / sizeof(kText[0]) - 1)];
    }
    return text;
}

void QRVersion2(benchmark::State& state) {
    renderPicture(state, 16, qrMessage(20));
}

void QRVersion10(benchmark::State& state) {
    renderPicture(state, 16, qrMessage(200));
}

void QRVersion40(benchmark::State& state) {
    renderPicture(state, 16, qrMessage(2300));
}

BENCHMARK(QRVersion2)->Args({300, 300})->Unit(benchmark::kMicrosecond);
BENCHMARK(QRVersion10)->Args({600, 600})->Unit(benchmark::kMicrosecond);
BENCHMARK(QRVersion40)->Args({600, 600})->Unit(benchmark::kMicrosecond);

// The PNG step alone, on a picture drawn once; the counter is the PNG's size in bytes.
void pngStep(benchmark::State& state, unsigned codeType, const std::wstring& value) {
    BarcodeFacade2 facade;
    setUp(facade, state, codeType, value);
    const PImage image = facade.draw();
    size_t bytes = 0;
    for (auto _ : state) {
        std::vector<unsigned char> png = BarcodeVelko::DM2PNG32(
            image.pixelData(), image.width(), image.height(), image.bytesPerPixel(), nullptr);
        bytes = png.size();
        benchmark::DoNotOptimize(png.data());
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}

void PngCode128(benchmark::State& state) {
    pngStep(state, 4, L"SHIP-2026/11/23 #42");
}

void PngCode39(benchmark::State& state) {
    pngStep(state, 3, L"CODE39-12345");
}
BENCHMARK(PngCode39)->Args({300, 150})->Unit(benchmark::kMicrosecond);

void PngQRVersion40(benchmark::State& state) {
    pngStep(state, 16, qrMessage(2300));
}

BENCHMARK(PngCode128)->Args({1000, 500})->Unit(benchmark::kMicrosecond);
BENCHMARK(PngQRVersion40)->Args({1000, 1000})->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
