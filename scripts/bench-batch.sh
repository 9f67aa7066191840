#!/usr/bin/env bash
# velko-barcode --batch beside zint --batch: 10,000 distinct EAN-13 values, one PNG a value at
# 3 pixels a module (ours 300 x 150, zint's with its quiet zones 339 x 144). The two sides take
# turns, ROUNDS times (5 by default); each side's least wall time, least CPU time (user and
# system) and least user time count: other work on the machine slows the wall clock, and the
# system time, mostly the making of 10,000 files, moves with the disk's load, so the files go to
# memory (/dev/shm) where there is one. Run after the release build (scripts/run-gallery.sh
# makes it).
set -euo pipefail
cd "$(dirname "$0")/.."
tool=${VELKO_CLI:-build-release/tools/cli/velko-barcode}
[ -x "$tool" ] || cmake --build build-release --target velko-barcode >/dev/null
rounds=${ROUNDS:-5}
count=10000
base=/dev/shm
[ -d "$base" ] || base=${TMPDIR:-/tmp}
work=$(mktemp -d "$base/velko-bench.XXXXXX")
trap 'rm -rf "$work"' EXIT

# Made by the shell's own 64-bit arithmetic: an awk may print a 12-digit number through a
# 32-bit integer.
values=$work/values.txt
for ((i = 0; i < count; i++)); do
    stem=$((400638133000 + i * 7919))
    sum=0
    for ((d = 0; d < 12; d++)); do
        sum=$((sum + ${stem:d:1} * (d % 2 ? 3 : 1)))
    done
    echo "$stem$(((10 - sum % 10) % 10))"
done >"$values"
distinct=$(sort -u "$values" | wc -l)
if [ "$distinct" -ne "$count" ] || grep -qvx '[0-9]\{13\}' "$values"; then
    echo "the values are not $count distinct EAN-13 numbers" >&2
    exit 1
fi

# Milliseconds of wall, CPU and user time of one run, as "WALL CPU USER"; the run's PNGs are
# counted. Any failure of the run ends the script: a refused value would time something else.
run() {
    local out=$1 times
    shift
    rm -rf "$out" && mkdir -p "$out"
    times=$({
        TIMEFORMAT='%3R %3U %3S'
        time "$@" >/dev/null 2>"$work/stderr"
    } 2>&1) || {
        echo "failed: $* ($(head -c 300 "$work/stderr"))" >&2
        exit 1
    }
    pngs=$(find "$out" -name '*.png' | wc -l)
    [ "$pngs" -eq "$count" ] || {
        echo "$1 wrote $pngs PNGs, not $count" >&2
        exit 1
    }
    set -- $times
    echo "$((10#${1/./})) $((10#${2/./} + 10#${3/./})) $((10#${2/./}))"
}

velko() {
    run "$work/velko" "$tool" -q -t 1 -s Width=300 -s Height=150 --batch "$values" -o "$work/velko"
}
zint_batch() {
    run "$work/zint" zint -b EANX --batch --height=40 --scale=1.5 -i "$values" \
        -o "$work/zint/~~~~~~.png"
}

# The least of each time so far ("0 0 0" at first) and of one more run.
best() {
    local least=() i
    read -ra least <<<"$1"
    set -- $2
    for i in 0 1 2; do
        least[i]=$((least[i] && least[i] < $1 ? least[i] : $1))
        shift
    done
    echo "${least[*]}"
}

report() {
    local name=$1
    set -- $2
    printf '%-22s wall %5d ms, CPU %5d ms, user %5d ms: %5d pictures/s by wall time, %5d by CPU\n' \
        "$name" "$1" "$2" "$3" $((count * 1000 / $1)) $((count * 1000 / $2))
}

have_zint=$(command -v zint >/dev/null && echo yes || echo no)
[ -r /proc/loadavg ] && echo "load average before: $(cut -d' ' -f1-3 /proc/loadavg)"
velko_best="0 0 0"
zint_best="0 0 0"
for ((round = 0; round < rounds; round++)); do
    times=$(velko)
    velko_best=$(best "$velko_best" "$times")
    if [ "$have_zint" = yes ]; then
        times=$(zint_batch)
        zint_best=$(best "$zint_best" "$times")
    fi
done
[ -r /proc/loadavg ] && echo "load average after:  $(cut -d' ' -f1-3 /proc/loadavg)"
echo "$count distinct EAN-13 values, least of $rounds rounds:"
report "velko-barcode --batch" "$velko_best"
if [ "$have_zint" = yes ]; then
    report "zint --batch" "$zint_best"
    read -r velko_wall velko_cpu _ <<<"$velko_best"
    read -r zint_wall zint_cpu _ <<<"$zint_best"
    printf 'ratio velko / zint: wall %d.%02d, CPU %d.%02d\n' \
        $((velko_wall / zint_wall)) $((velko_wall * 100 / zint_wall % 100)) \
        $((velko_cpu / zint_cpu)) $((velko_cpu * 100 / zint_cpu % 100))
else
    echo "zint is not installed (apt-get install zint) to compare with"
fi
