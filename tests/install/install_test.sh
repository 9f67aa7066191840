#!/bin/sh
# As a new user would: install the build into a fresh prefix and move that elsewhere, so that
# nothing is found by the build's paths; compile a host with pkg-config and another through
# find_package, and read the EAN-13 each draws; then the installed tool, reading back with its
# module, and its man page.
set -u
cmake=$1 build=$2 here=$3 cxx=$4 pkgconfig=$5 generator=$6 reader=$7 host=$8
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() {
    echo "$*"
    exit 1
}
unset VELKO_EXTENSION
ean13=4006381333931

"$cmake" --install "$build" --prefix "$tmp/installed" >/dev/null || fail "install failed"
mv "$tmp/installed" "$tmp/prefix"
prefix=$tmp/prefix

pc=$(find "$prefix" -name velko-barcode.pc)
[ -n "$pc" ] || fail "no velko-barcode.pc"
export PKG_CONFIG_PATH="${pc%/*}"
"$cxx" -std=c++17 $("$pkgconfig" --cflags velko-barcode) "$host" -o "$tmp/pc_host" \
    $("$pkgconfig" --libs velko-barcode) || fail "the pkg-config host doesn't compile"
"$tmp/pc_host" "$("$pkgconfig" --variable=extension velko-barcode)" "$tmp/pc.png" ||
    fail "the pkg-config host drew nothing"
[ "$("$reader" "$tmp/pc.png")" = $ean13 ] || fail "the pkg-config host's EAN-13 doesn't read"

"$cmake" -S "$here/find_package_host" -B "$tmp/fp" -G "$generator" \
    -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$cxx" -DEXAMPLE_HOST="$host" \
    >"$tmp/fp.log" 2>&1 &&
    "$cmake" --build "$tmp/fp" >>"$tmp/fp.log" 2>&1 || { cat "$tmp/fp.log"; fail "find_package"; }
"$tmp/fp/minimal_host" "$(cat "$tmp/fp/extension.txt")" "$tmp/fp.png" ||
    fail "the find_package host drew nothing"
[ "$("$reader" "$tmp/fp.png")" = $ean13 ] || fail "the find_package host's EAN-13 doesn't read"

tool=$prefix/bin/velko-barcode
version=$("$tool" --version) || fail "--version: $version"
echo "$version" | grep -qF "library $prefix/" || fail "the installed tool loads another: $version"
[ "$("$tool" --types | wc -l)" = 25 ] || fail "--types lists no 25 rows"
"$tool" -q -t qr -o "$tmp/qr.png" QR && "$tool" -q -t 16 -o - QR >"$tmp/16.png" &&
    cmp -s "$tmp/qr.png" "$tmp/16.png" || fail "-t qr and -t 16 -o - differ"
extension=$(find "$prefix" -name libcom_velko_VelkoBarcod.so)
[ -f "${extension%/*}/velko-barcode-reader.so" ] || fail "no reader module beside the extension"
"$tool" -q --verify -t ean13 -o "$tmp/verified.png" $ean13 ||
    fail "the installed tool can't read back its picture"
"$tool" -q -s Font="DejaVu Sans:style=Bold" -o "$tmp/fc.png" 1 &&
    "$tool" -q -s Font=DejaVuSans-Bold -o "$tmp/file.png" 1 &&
    cmp -s "$tmp/fc.png" "$tmp/file.png" || fail "fc-list's font name isn't understood"
for usage in "" "-t 25 X" "-t nosuchtype X" "-o $tmp/x.svg X" "-s Font=NoSuchFont X"; do
    # shellcheck disable=SC2086 # the words of a case are its arguments
    "$tool" $usage >/dev/null 2>&1
    [ $? = 2 ] || fail "'$usage' must be a usage error"
done
[ ! -e "$tmp/x.svg" ] || fail "-o x.svg wrote a file"

man -l "$prefix/share/man/man1/velko-barcode.1" 2>&1 | grep -q "velko-barcode - draw barcodes" ||
    fail "man -l shows no man page"
[ -s "$prefix/share/doc/velko-barcode/README.md" ] || fail "no README among the docs"
exit 0
