#!/usr/bin/env bash
# Pictures per second for 10 000 EAN-13 values at 300 x 150: velko-barcode --batch beside
# zint --batch on the same file, each writing one PNG a value. Run after the release build
# (scripts/run-gallery.sh makes it).
set -euo pipefail
cd "$(dirname "$0")/.."
tool=${VELKO_CLI:-build-release/tools/cli/velko-barcode}
[ -x "$tool" ] || cmake --build build-release --target velko-barcode >/dev/null
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
count=10000
awk -v n="$count" 'BEGIN {
    for (i = 0; i < n; i++) {
        stem = sprintf("%012d", 400638133000 + i * 7919)
        sum = 0
        for (d = 1; d <= 12; d++) sum += substr(stem, d, 1) * (d % 2 ? 1 : 3)
        print stem (10 - sum % 10) % 10
    }
}' >"$work/values.txt"

rate() {
    local start end
    start=$(date +%s.%N)
    "$@" >/dev/null 2>&1 || true
    end=$(date +%s.%N)
    awk -v n="$count" -v a="$start" -v b="$end" 'BEGIN { printf "%.0f", n / (b - a) }'
}

mkdir -p "$work/velko" "$work/zint"
velko=$(rate "$tool" -q -t 1 -s Width=300 -s Height=150 --batch "$work/values.txt" -o "$work/velko")
echo "velko-barcode --batch: $velko pictures/s ($(ls "$work/velko" | wc -l) PNGs)"
if command -v zint >/dev/null; then
    zint=$(rate zint -b EANX --batch --height=50 --scale=1 -i "$work/values.txt" \
        -o "$work/zint/~~~~~~.png")
    echo "zint --batch:          $zint pictures/s ($(ls "$work/zint" | wc -l) PNGs)"
else
    echo "zint is not installed (apt-get install zint) to compare with"
fi
