#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/png/dm2png32.h"
#include "BarcodeLib/png/logo_step.h"
#include "resampler/image_resizer.h"

namespace {

using BarcodeVelko::BarcodeFacade2;

// Soft diagonal bands in every channel: neither flat nor noise.
std::vector<unsigned char> gradient(int width, int height) {
    std::vector<unsigned char> pixels(static_cast<size_t>(width) * height * 4);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            for (int c = 0; c < 4; ++c) {
                pixels[(static_cast<size_t>(y) * width + x) * 4 + c] =
                    static_cast<unsigned char>((x * (c + 1) + y * (4 - c)) % 256);
            }
        }
    }
    return pixels;
}

PImage logo512() {
    const std::vector<unsigned char> pixels = gradient(512, 512);
    return PImage(512, 512, PByteArray(pixels.data(), pixels.size()));
}

// A QR picture of 600 x 600 as the host gets it: draw and PNG.
void QRPicture(benchmark::State& state) {
    BarcodeFacade2 facade;
    facade.setCodeAuto(false);
    facade.setCodeType(16);
    facade.setColumnCount(600);
    facade.setRowCount(600);
    facade.setQRErrorCorrectionLevel(3);
    facade.setCodeValue(L"https://example.com/track/42");
    const PImage logo = logo512();
    for (auto _ : state) {
        if (state.range(0)) {
            facade.setLogo(logo);
            facade.setLogoSizePercent(20.0);
        }
        const PImage image = facade.draw();
        std::vector<unsigned char> png = BarcodeVelko::DM2PNG32(
            image.pixelData(), image.width(), image.height(), image.bytesPerPixel(), nullptr);
        benchmark::DoNotOptimize(png.data());
    }
    state.SetLabel(state.range(0) ? "with a 512 x 512 logo at 20 %" : "without a logo");
}

BENCHMARK(QRPicture)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// The step alone on a finished 600 x 600 picture: 512 x 512 scaled to 120 x 120 and drawn.
void LogoStep(benchmark::State& state) {
    PImage picture(600, 600, PColor(255, 255, 255, 255));
    const PImage logo = logo512();
    for (auto _ : state) {
        BarcodeVelko::stampLogo(picture, logo, 20.0, 0, 0, 600, 600);
        benchmark::DoNotOptimize(picture.pixelData());
    }
}

BENCHMARK(LogoStep)->Unit(benchmark::kMicrosecond);

// The resampler alone, square pictures from the first argument's side to the second's.
void Resample(benchmark::State& state) {
    const int from = static_cast<int>(state.range(0));
    const int to = static_cast<int>(state.range(1));
    const std::vector<unsigned char> source = gradient(from, from);
    std::vector<unsigned char> target(static_cast<size_t>(to) * to * 4);
    for (auto _ : state) {
        const avir::CImageResizer resizer;
        resizer.resizeImage(source.data(), from, from, 0, target.data(), to, to, 4);
        benchmark::DoNotOptimize(target.data());
    }
}

BENCHMARK(Resample)->Args({512, 120})->Args({64, 400})->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
