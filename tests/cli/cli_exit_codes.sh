#!/bin/sh
# velko-barcode answers 0 for a clean barcode, 1 for an error picture, 2 for a usage error or a
# write the object refused, and writes the PNG in the first two cases.
tool=$1
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
check() {
    expected=$1
    shift
    rm -f "$out/p.png"
    "$tool" -q -o "$out/p.png" "$@" 2>/dev/null
    actual=$?
    [ "$actual" = "$expected" ] || { echo "$* answered $actual, not $expected"; exit 1; }
    if [ "$expected" != 2 ] && [ ! -s "$out/p.png" ]; then
        echo "$* wrote no PNG"
        exit 1
    fi
}
check 0 -t 3 CODE39
check 0 -s Ширина=300 -t 16 -b 0J/RgNC40LLQtdGC
check 1 -t 3 lower
check 2 --bogus
check 2 -s BarAlign=7 X
check 2 -s NoSuchProperty=1 X
check 2 -s FontSize=big X
