#!/usr/bin/env bash
# Builds the extension and the command-line host, then renders the demo value of every code
# type and a few values of our own through the shared library into gallery/.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build-release -G Ninja -DCMAKE_BUILD_TYPE=Release -DVELKO_BUILD_TESTS=OFF >/dev/null
cmake --build build-release -j "$(nproc)" --target velko-barcode
tool=build-release/tools/cli/velko-barcode
mkdir -p gallery
"$tool" --verify --gallery gallery
"$tool" -o gallery/label_ean13.png -s Width=300 -s Height=150 -s FontSize=16 4006381333931
"$tool" -o gallery/label_code128.png -t 4 -s Width=400 -s Height=120 "SHIP-2026/11/23 #42"
"$tool" -o gallery/label_qr.png -t 16 -s Width=300 -s Height=300 "https://example.com/track/42"
"$tool" -o gallery/label_qr_logo.png -t 16 -s Width=300 -s Height=300 -s QRErrorCorrectionLevel=3 \
    -s LogoSizePercentFromBarcode=20 --logo data/demo_logo.png "https://example.com/track/42"
