#!/usr/bin/env bash
# Renews the pictures of the documentation from the tour, on the smallest screen that is supported.
# Where pngquant is installed it makes them small.
#   tools/screenshots.sh
# Takes the pictures in each language, size and colors instead, to be looked at.
#   tools/screenshots.sh all
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
source tools/setup.sh

# tour FOLDER OPTION...
tour() {
    mkdir -p "$1"
    XDG_CONFIG_HOME=$PWD/$1/config XDG_DATA_HOME=$PWD/$1/data build/dev/bin/pelorin-tour "$@"
}

build dev pelorin-tour
pictures=build/screenshots
if [[ ${1:-} == all ]]; then
    for size in 1280x720 1920x1080; do
        for language in 1 2 4 8 16; do
            for colors in light dark; do
                options=(--quick --language "$language" --size "$size")
                if [[ $colors == dark ]]; then
                    options+=(--dark)
                fi
                say "Language $language, $size, $colors"
                tour "$pictures/$language-$size-$colors" "${options[@]}" >/dev/null
            done
        done
    done
    exit
fi
tour "$pictures" --size 1280x720
for picture in docs/screenshots/*.png; do
    if command -v pngquant >/dev/null; then
        pngquant --force --output "$picture" -- "$pictures/${picture##*/}"
    else
        cp -- "$pictures/${picture##*/}" "$picture"
    fi
done
