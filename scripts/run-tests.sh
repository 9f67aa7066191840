#!/usr/bin/env bash
# Builds and runs the whole test suite twice, a plain build and one under ASan and UBSan; then
# the thread test under ThreadSanitizer and each fuzz target for a minute (both with clang).
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=$(nproc)

run() {
    local dir=$1
    shift
    cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
    cmake --build "$dir" -j "$jobs"
    ctest --test-dir "$dir" -j "$jobs" --output-on-failure
}

run build
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    run build-sanitize -DVELKO_SANITIZE=ON
bash scripts/run-tsan.sh
bash scripts/run-fuzz.sh 60
