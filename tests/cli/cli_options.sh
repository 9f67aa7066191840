#!/bin/sh
# velko-barcode: writes in the order given, -t among them; folders made as mkdir -p makes them;
# the gallery read back; --batch with one report line and one PNG a value, an error picture never
# under a label's name, exit 1 when any value gave one.
tool=$1
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
fail() {
    echo "$*"
    exit 1
}

"$tool" -q -o "$out/typed_then_centred.png" -t 1 -s TextAlign=0 4006381333931 || fail "-t -s"
"$tool" -q -o "$out/written.png" -s CodeAuto=false -s CodeType=1 -s TextAlign=0 4006381333931
"$tool" -q -o "$out/centred_then_typed.png" -s TextAlign=0 -t 1 4006381333931
cmp -s "$out/typed_then_centred.png" "$out/written.png" || fail "-t is not written in its place"
cmp -s "$out/typed_then_centred.png" "$out/centred_then_typed.png" &&
    fail "writing the type after TextAlign should reset it"

"$tool" -q --verify --gallery "$out/new/folder" 2>"$out/said" || fail "gallery: $(cat "$out/said")"
[ "$(grep -c 'not verifiable' "$out/said")" = 2 ] || fail "gallery: $(cat "$out/said")"
[ "$(ls "$out/new/folder"/*.png | wc -l)" = 25 ] || fail "the gallery is not 25 pictures"
[ -s "$out/new/folder/index.html" ] || fail "the gallery has no index"
touch "$out/file"
"$tool" -q --gallery "$out/file/sub" 2>/dev/null
[ $? = 2 ] || fail "a gallery folder that can't be made must exit 2"

printf '4006381333931\r\n12345670\n' >"$out/good.txt"
"$tool" -q -t 1 --batch "$out/good.txt" -o "$out/b1" 2>/dev/null && fail "an EAN-8 value is no EAN-13"
[ -s "$out/b1/000001.png" ] && [ -s "$out/b1/000002.error.png" ] || fail "batch wrote no PNGs"
[ -e "$out/b1/000002.png" ] && fail "an error picture under a label's name"
report=$(printf '4006381333931\n \n12345670\n' | "$tool" --batch - -o "$out/b2/" 2>"$out/said")
[ $? = 0 ] || fail "a batch of clean values must exit 0"
[ "$(echo "$report" | grep -c '\.png: type ')" = 2 ] || fail "report: $report"
echo "$report" | grep -q '/b2/000003.png: type 0 12345670' || fail "report: $report"
echo "$report" | grep -q '//' && fail "report: $report"
grep -q 'line 2: blank' "$out/said" || fail "a blank line not reported: $(cat "$out/said")"
[ -e "$out/b2/000002.png" ] && fail "a blank line drawn"
for input in "$out/missing.txt" "$out"; do
    "$tool" --batch "$input" -o "$out/b3" 2>/dev/null
    [ $? = 2 ] || fail "--batch $input must exit 2"
done
"$tool" --batch "$out/good.txt" VALUE 2>/dev/null
[ $? = 2 ] || fail "--batch with a value must exit 2"
exit 0
