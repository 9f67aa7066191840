#!/usr/bin/env bash
# Line and branch coverage of the library by the test suite: a Debug build with --coverage in
# build-coverage (rebuilt incrementally), the counters zeroed, the whole suite run, then gcovr
# over BarcodeLib/, layer/, host/ and resampler/. Last, the size of the tests against the code.
set -euo pipefail
cd "$(dirname "$0")/.."
dir=${COVERAGE_DIR:-build-coverage}
jobs=${JOBS:-$(nproc)}

# Atomic counters: the thread tests would otherwise leave counts that gcov can't parse.
flags="--coverage -fprofile-update=atomic"
cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_C_FLAGS="$flags" \
    -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS=--coverage \
    -DCMAKE_SHARED_LINKER_FLAGS=--coverage >/dev/null
cmake --build "$dir" -j "$jobs"
find "$dir" -name '*.gcda' -delete
ctest --test-dir "$dir" -j "$jobs" --output-on-failure

# Code generated at build time or kept as data is no one's line to cover.
# gcovr writes its report by replacing the file named, so it gets one of its own, never /dev/null.
gcovr --root . --object-directory "$dir" --filter 'BarcodeLib/' --filter 'layer/' \
    --filter 'host/' --filter 'resampler/' --exclude '.*/data/.*' --print-summary \
    --output "$dir/coverage.txt" "$dir"

bash scripts/test-ratio.sh
