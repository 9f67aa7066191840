#!/usr/bin/env bash
# Builds the fuzz targets of tests/fuzz with clang (libFuzzer, AddressSanitizer and
# UndefinedBehaviorSanitizer) and runs each for the given number of seconds, 60 by default,
# starting from its seed folder. Without clang it does nothing. A finding ends the run with a
# failure; the input that caused it lands in BUILD/fuzz-TARGET/findings.
#   scripts/run-fuzz.sh [SECONDS]      VELKO_FUZZ_BUILD picks the build folder (build-fuzz)
set -euo pipefail

seconds="${1:-60}"
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${VELKO_FUZZ_BUILD:-$root/build-fuzz}"

source "$root/scripts/clang-build.sh"
have_clang run-fuzz || exit 0
clang_build "$build" -DVELKO_FUZZ=ON fuzz_cbarcode fuzz_logo

export ASAN_OPTIONS="detect_leaks=1:abort_on_error=0"
export UBSAN_OPTIONS="print_stacktrace=1"
status=0
for target in cbarcode logo; do
    work="$build/fuzz-$target"
    mkdir -p "$work/corpus" "$work/findings"
    dictionary=()
    [ -f "$root/tests/fuzz/$target.dict" ] && dictionary=(-dict="$root/tests/fuzz/$target.dict")
    echo "run-fuzz: $target for $seconds s"
    # New inputs go to the first folder; the seeds in the tree are only read.
    "$build/tests/fuzz/fuzz_$target" "$work/corpus" "$root/tests/fuzz/corpus/$target" \
        "${dictionary[@]}" -max_total_time="$seconds" -timeout=30 -rss_limit_mb=3072 \
        -artifact_prefix="$work/findings/" -print_final_stats=1 2>"$work/log" || {
        status=1
        tail -n 60 "$work/log"
    }
    grep -E '^#[0-9]+.*(DONE|pulse)|stat::number_of_executed_units|cov:' "$work/log" | tail -n 2
done
exit $status
