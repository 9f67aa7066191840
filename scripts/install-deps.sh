#!/usr/bin/env bash
# Installs every Debian package that building, running and testing need. Safe to run again.
set -euo pipefail

packages=(
    build-essential cmake ninja-build pkg-config clang
    libfreetype-dev libfontconfig-dev libdmtx-dev liblodepng-dev
    libboost-dev libboost-locale-dev
    libgtest-dev libgmock-dev libbenchmark-dev libzxing-dev fonts-dejavu-core man-db
    gcc-multilib g++-multilib locales
    openjdk-17-jdk-headless android-liblog-dev libdeflate-dev libzint-dev zint gcovr
)

# The thread test runs under Russian locales: ru_RU.UTF-8, and Russian_Russia.UTF-8, the name
# under which the host's SetLocale("Russian_Russia") makes the messages Russian.
make_locales() {
    local root=""
    [ "$(id -u)" -eq 0 ] || root="sudo"
    for name in ru_RU Russian_Russia; do
        locale -a | grep -qx "$name.utf8" || $root localedef -i ru_RU -f UTF-8 "$name.UTF-8"
    done
}

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && { make_locales; exit 0; }

sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
if [ -z "$(ls -A /var/lib/apt/lists 2>/dev/null | grep -v -e lock -e partial)" ]; then
    $sudo apt-get update -qq
fi
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null ||
    { $sudo apt-get update -qq && $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null; }
make_locales
