#!/usr/bin/env bash
# Measures the peaks that docs/limits.md promises, through our own host: one picture with
# TrueType text of 4000 pixels (under 300 MB), a value of 64 MB (under 200 MB, the host's own
# copy of it included), a FileName of 64 Mi characters (under 200 MB, the host's 128 MB
# included), and text at every size from 2 to 400 (the glyph store within its budget all
# along). Not a timed test: run it by hand or in CI after a change to the bounds.
#   scripts/check-limits.sh [BUILD_DIR]      default build-release, made if missing
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build-release}"
# A folder that is already configured keeps its settings.
[ -f "$build/CMakeCache.txt" ] ||
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVELKO_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" -j "$(nproc)" --target velko-limits
tool="$build/tools/limits/velko-limits"
status=0
"$tool" --peak 300 font 4000 1000 || status=1
"$tool" --peak 200 value 64 || status=1
"$tool" --peak 200 text FileName 64 || status=1
"$tool" glyphs 2 400 || status=1
exit $status
