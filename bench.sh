#!/usr/bin/env bash
# Builds the release preset and prints the figures of every benchmark; arguments are
# passed on to each, for example --benchmark_filter=Log.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")"
source tools/setup.sh

build release
found=no
for program in build/release/benchmarks/bench*; do
    if [[ -f $program && -x $program ]]; then
        found=yes
        say "${program##*/}"
        QT_QPA_PLATFORM=offscreen:configfile=$PWD/tests/support/screen.json "$program" "$@"
    fi
done
[[ $found == yes ]] || die "there is no benchmark in build/release/benchmarks"
