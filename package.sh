#!/usr/bin/env bash
# Builds the Debian packages of the last commit, with their source package.
#   ./package.sh [<folder, build/packages if none is named>]
# The folder is emptied before. The same commit gives the same bytes, wherever and whenever.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")"
source tools/setup.sh

folder=${1:-build/packages}
packages+=(build-essential debhelper)
install_packages
rm -rf -- "$folder"
mkdir -p -- "$folder"
umask 022 # the modes of the sources go into their package
git clone --quiet . "$folder/pelorin"
cd -- "$folder/pelorin"
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
export DEB_BUILD_OPTIONS=${DEB_BUILD_OPTIONS-"noautodbgsym terse parallel=$(nproc)"}
say "Building the packages in $folder"
dpkg-buildpackage --unsigned-source --unsigned-changes
cd ..
rm -rf pelorin
