#!/usr/bin/env bash
# Prints a checksum of every code type's demo picture in each of the four rotations, through
# the built command-line tool: run it before and after a change that must not move a pixel or
# a byte, and compare the two outputs.
set -euo pipefail
build=${1:-build}
tool="$build/tools/cli/velko-barcode"
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
for rotation in 0 90 180 270; do
    "$tool" -q -s CanvasRotation=$rotation --gallery "$out/$rotation" >/dev/null 2>&1 || true
    (cd "$out/$rotation" && md5sum ./*.png | sed "s|\./|$rotation/|")
done
