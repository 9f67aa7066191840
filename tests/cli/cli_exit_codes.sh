#!/bin/sh
# velko-barcode answers 0 for a clean barcode, 1 for an error picture or one that --verify reads
# otherwise, 2 for a usage error or a write the object refused, and writes the PNG in the first
# two cases; what went wrong stands on standard error.
tool=$1
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
# check EXIT TEXT -- ARGS: the exit code, and TEXT somewhere on standard error; "silent" for an
# empty standard error, "" for anything.
check() {
    expected=$1
    said=$2
    shift 3
    rm -f "$out/p.png"
    "$tool" -q -o "$out/p.png" "$@" 2>"$out/err"
    actual=$?
    [ "$actual" = "$expected" ] || { echo "$* answered $actual, not $expected"; exit 1; }
    if [ "$expected" != 2 ] && [ ! -s "$out/p.png" ]; then
        echo "$* wrote no PNG"
        exit 1
    fi
    if [ "$said" = silent ]; then
        [ ! -s "$out/err" ] || { echo "$* said: $(cat "$out/err")"; exit 1; }
    elif [ -n "$said" ]; then
        grep -qF -- "$said" "$out/err" || { echo "$* said: $(cat "$out/err")"; exit 1; }
    fi
}
logo=$(dirname "$0")/../host/logo.b64
base64 -d "$logo" >"$out/logo.png"

check 0 "" -- -t 3 CODE39
check 0 "" -- -s Ширина=300 -t 16 -b 0J/RgNC40LLQtdGC
check 1 "invalid barcode" -- -t 3 lower
check 1 "check digit 2, expecting 1" -- -t 1 4006381333932
check 1 "size too small" -- -t 4 -s Width=60 "SHIP-2026/11/23 #42"
check 2 "" -- --bogus
check 2 "" -- -s BarAlign=7 X
check 2 "" -- -s NoSuchProperty=1 X
check 2 "" -- -s FontSize=big X
check 2 "can't read the logo" -- --logo "$out/none.png" -t 16 X
check 2 "not a PNG" -- --logo "$0" -t 16 X
[ "$(wc -l <"$out/err")" = 1 ] || { echo "a logo that is no PNG: $(cat "$out/err")"; exit 1; }

# Read back: clipped, misread and clean pictures; the warnings that go with them.
check 1 "unreadable" -- --verify -t 6 -s Width=400 -s Height=60 "PDF417 example"
check 0 silent -- --verify -t 6 -s Width=400 -s Height=90 "PDF417 example"
check 1 "arrives as 0" -- --verify -t 1 -s BarColor=0xFFFF0000 400638133393
check 1 "reads GS1 data (01)04006381333931(10)ABC" -- --verify -t 17 -s Width=400 -s Height=150 \
    "(01)04006381333932(10)ABC"
check 1 "drawn as plain data" -- --verify -t 2 -s Width=400 "(01)1234"
check 0 "is no date" -- --verify -t 2 -s Width=400 "(11)261301(10)A"
check 0 "not verifiable" -- --verify -t 5 -s Width=300 ABC
check 0 "" -- --verify -t 8 -s Width=300 1234567
# 144 x 144 modules, which only libdmtx's reader reads.
check 0 "" -- --verify -t 18 -s Width=400 -s Height=400 "$(printf 'A%.0s' $(seq 1500))"
check 0 "clips the symbol" -- -t 5 -s Width=300 -s Height=12 ABC
check 0 "" -- --verify --logo "$out/logo.png" -t 16 -s Width=300 -s Height=300 "https://example.com"
check 0 silent -- --verify -t 1 -s Width=300 -s Height=150 -s CanvasRotation=90 400638133393
check 0 silent -- --verify -t 4 -s Width=400 -s Height=120 -s FontSize=24 "SHIP-2026/11/23 #42"
check 0 "did not fit" -- --verify -t 4 -s Width=400 -s Height=120 -s FontSize=32 \
    "SHIP-2026/11/23 #42"
check 0 "did not fit" -- --verify -t 1 -s Width=300 -s Height=300 -s FontSize=44 400638133393

# -o makes its folders as mkdir -p does; a folder under a file is a usage error.
"$tool" -q -t 1 -o "$out/a/b/c.png" 400638133393 || { echo "-o a/b/c.png failed"; exit 1; }
[ -s "$out/a/b/c.png" ] || { echo "-o a/b/c.png made no picture"; exit 1; }
"$tool" -q -t 1 -o "$out/a/b/c.png/d.png" 400638133393 2>/dev/null
[ $? = 2 ] || { echo "a folder under a file must exit 2"; exit 1; }
exit 0
