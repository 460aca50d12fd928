#!/usr/bin/env bash
# Renews the pictures of the documentation from the tour, on the smallest screen that is supported.
# Where pngquant is installed it makes them small.
#   tools/screenshots.sh
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
source tools/setup.sh

build dev pelorin-tour
tour=build/screenshots
mkdir -p "$tour"
sed -e 's/1920/1280/' -e 's/1080/720/' tests/support/screen.json >"$tour/screen.json"
    XDG_CONFIG_HOME=$PWD/$tour/config \
    XDG_DATA_HOME=$PWD/$tour/data \
    QT_QPA_PLATFORM=offscreen:configfile=$tour/screen.json \
    build/dev/bin/pelorin-tour "$tour"
for picture in docs/screenshots/*.png; do
    if command -v pngquant >/dev/null; then
        pngquant --force --output "$picture" -- "$tour/${picture##*/}"
    else
        cp -- "$tour/${picture##*/}" "$picture"
    fi
done
