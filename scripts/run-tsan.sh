#!/usr/bin/env bash
# Builds the extension and the thread test with clang and ThreadSanitizer, and runs the test:
# many objects on many threads under a Russian process locale. Any report fails the run.
# Without clang it does nothing.
#   scripts/run-tsan.sh              VELKO_TSAN_BUILD picks the build folder (build-tsan)
set -euo pipefail

root="$(cd "$(dirname "$0")/.." && pwd)"
build="${VELKO_TSAN_BUILD:-$root/build-tsan}"

source "$root/scripts/clang-build.sh"
have_clang run-tsan || exit 0
clang_build "$build" -DVELKO_TSAN=ON thread_tests

TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1 exitcode=66" \
    "$build/tests/threads/thread_tests"
