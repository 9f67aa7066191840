// Times the first picture of a fresh process, which unpacks the whole built-in font, against
// the pictures after it. Run by hand, once per measurement: only a new process is "first".
// Processor time is printed beside wall time, since a busy machine stretches the latter.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <vector>

#include "BarcodeLib/facade/barcode_facade2.h"

namespace {

struct Timing {
    double wall = 0;
    double cpu = 0;
};

class Stopwatch {
public:
    Timing elapsed() const {
        return {std::chrono::duration<double, std::milli>(Clock::now() - wallStart).count(),
                1000.0 * static_cast<double>(std::clock() - cpuStart) / CLOCKS_PER_SEC};
    }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point wallStart = Clock::now();
    std::clock_t cpuStart = std::clock();
};

void print(const char* what, const Timing& timing) {
    std::printf("%-34s %8.3f ms wall, %8.3f ms processor\n", what, timing.wall, timing.cpu);
}

}  // namespace

int main() {
    Stopwatch construction;
    BarcodeVelko::BarcodeFacade2 facade;
    print("facade construction (font list):", construction.elapsed());

    Stopwatch first;
    const bool valid = facade.draw().isValid();
    print("first picture, built-in font:", first.elapsed());

    constexpr int kLater = 200;
    std::vector<double> wall;
    Stopwatch all;
    for (int i = 0; i < kLater; ++i) {
        Stopwatch one;
        facade.draw();
        wall.push_back(one.elapsed().wall);
    }
    const Timing total = all.elapsed();
    std::sort(wall.begin(), wall.end());
    print("later pictures, mean:", {total.wall / kLater, total.cpu / kLater});
    std::printf("later pictures, wall median %.3f ms, min %.3f ms\n", wall[wall.size() / 2],
                wall.front());
    return valid ? 0 : 1;
}
