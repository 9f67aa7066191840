#!/usr/bin/env bash
# Builds the extension and the thread test with clang and ThreadSanitizer, and runs the test:
# many objects on many threads under a Russian process locale. Any report fails the run.
# Without clang it does nothing.
#   scripts/run-tsan.sh              VELKO_TSAN_BUILD picks the build folder (build-tsan)
set -euo pipefail

root="$(cd "$(dirname "$0")/.." && pwd)"
build="${VELKO_TSAN_BUILD:-$root/build-tsan}"

if ! command -v clang++ >/dev/null 2>&1; then
    echo "run-tsan: no clang++, nothing checked"
    exit 0
fi
launcher=()
command -v ccache >/dev/null 2>&1 &&
    launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)

cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DVELKO_TSAN=ON "${launcher[@]}" >/dev/null
cmake --build "$build" --target thread_tests

TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1 exitcode=66" \
    "$build/tests/threads/thread_tests"
