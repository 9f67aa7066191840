#!/usr/bin/env bash
# 10 000 EAN-13 values at 300 x 150: velko-barcode --batch beside zint --batch on the same file,
# each writing one PNG a value, runs interleaved; the least wall and CPU time of each side and
# their ratio. The files go to memory (/dev/shm) where there is one, so that the disk's time
# doesn't drown the two. Run after the release build (scripts/run-gallery.sh makes it).
set -euo pipefail
cd "$(dirname "$0")/.."
tool=${VELKO_CLI:-build-release/tools/cli/velko-barcode}
[ -x "$tool" ] || cmake --build build-release --target velko-barcode >/dev/null
command -v zint >/dev/null || { echo "zint is not installed (apt-get install zint)"; exit 1; }
base=/dev/shm
[ -d "$base" ] || base=${TMPDIR:-/tmp}
work=$(mktemp -d "$base/velko-bench.XXXXXX")
trap 'rm -rf "$work"' EXIT
count=10000
runs=${RUNS:-5}
awk -v n="$count" 'BEGIN {
    for (i = 0; i < n; i++) {
        stem = sprintf("%012d", 400638133000 + i * 7919)
        sum = 0
        for (d = 1; d <= 12; d++) sum += substr(stem, d, 1) * (d % 2 ? 1 : 3)
        print stem (10 - sum % 10) % 10
    }
}' >"$work/values.txt"

# Prints "wall cpu" in seconds for one run of the command.
timed() {
    /usr/bin/time -f "%e %U %S" -o "$work/time" "$@" >/dev/null 2>&1 || true
    awk '{ printf "%s %.2f", $1, $2 + $3 }' "$work/time"
}

best() {
    sort -n -k"$1" "$2" | head -1 | cut -d' ' -f"$1"
}

: >"$work/velko.times"
: >"$work/zint.times"
for _ in $(seq "$runs"); do
    rm -rf "$work/velko" "$work/zint"
    mkdir -p "$work/velko" "$work/zint"
    echo "$(timed "$tool" -q -t 1 -s Width=300 -s Height=150 --batch "$work/values.txt" \
        -o "$work/velko")" >>"$work/velko.times"
    echo "$(timed zint -b EANX --batch --height=50 --scale=1 -i "$work/values.txt" \
        -o "$work/zint/~~~~~~.png")" >>"$work/zint.times"
done
echo "PNGs: velko-barcode $(ls "$work/velko" | wc -l), zint $(ls "$work/zint" | wc -l)"
echo "load average: $(cut -d' ' -f1-3 /proc/loadavg)"
awk -v vw="$(best 1 "$work/velko.times")" -v vc="$(best 2 "$work/velko.times")" \
    -v zw="$(best 1 "$work/zint.times")" -v zc="$(best 2 "$work/zint.times")" 'BEGIN {
    printf "velko-barcode --batch: %.2f s wall, %.2f s CPU\n", vw, vc
    printf "zint --batch:          %.2f s wall, %.2f s CPU\n", zw, zc
    printf "ratio:                 %.2f wall, %.2f CPU\n", vw / zw, vc / zc
}'
