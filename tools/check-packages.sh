#!/usr/bin/env bash
# Builds the Debian packages twice, in two folders, time zones and languages: fails if lintian finds
# anything or if their bytes differ.
#   tools/check-packages.sh
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
source tools/setup.sh

packages+=(lintian)
install_packages
generate_german_locale
./package.sh
say "Checking the packages"
lintian --pedantic --display-info --fail-on error,warning,info,pedantic build/packages/*.changes

elsewhere=$(mktemp -d)
trap 'rm -rf -- "$elsewhere"' EXIT
(
    umask 027
    TZ=Pacific/Auckland LC_ALL=de_DE.UTF-8 ./package.sh "$elsewhere/again"
)
for file in build/packages/*.{deb,dsc,tar.xz}; do
    cmp -- "$file" "$elsewhere/again/${file##*/}"
done
say "The packages are the same, built twice"
