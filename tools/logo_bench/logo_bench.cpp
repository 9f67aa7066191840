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

PImage gradientLogo(int width, int height) {
    const std::vector<unsigned char> pixels = gradient(width, height);
    return PImage(width, height, PByteArray(pixels.data(), pixels.size()));
}

// A QR picture of side x side as the host gets it, draw and PNG, with a 64 x 48 logo at the
// percent of the second argument (none at 0).
void QRPicture(benchmark::State& state) {
    const auto side = static_cast<unsigned>(state.range(0));
    const auto percent = static_cast<double>(state.range(1));
    BarcodeFacade2 facade;
    facade.setCodeAuto(false);
    facade.setCodeType(16);
    facade.setColumnCount(side);
    facade.setRowCount(side);
    facade.setQRErrorCorrectionLevel(3);
    facade.setCodeValue(L"https://example.com/track/42");
    const PImage logo = gradientLogo(64, 48);
    for (auto _ : state) {
        if (percent > 0) {
            facade.setLogo(logo);
            facade.setLogoSizePercent(percent);
        }
        const PImage image = facade.draw();
        std::vector<unsigned char> png = BarcodeVelko::DM2PNG32(
            image.pixelData(), image.width(), image.height(), image.bytesPerPixel(), nullptr);
        benchmark::DoNotOptimize(png.data());
    }
}

BENCHMARK(QRPicture)
    ->ArgNames({"side", "percent"})
    ->ArgsProduct({{1000, 8000}, {0, 1, 20, 100}})
    ->Unit(benchmark::kMillisecond);

// The step alone on a finished 600 x 600 picture: 512 x 512 scaled to 120 x 120 and drawn.
void LogoStep(benchmark::State& state) {
    PImage picture(600, 600, PColor(255, 255, 255, 255));
    const PImage logo = gradientLogo(512, 512);
    for (auto _ : state) {
        BarcodeVelko::stampLogo(picture, logo, 20.0, {0, 0, 600, 600});
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
