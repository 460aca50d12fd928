#!/usr/bin/env bash
# Builds the benchmarks of the release preset and prints their figures; arguments are
# passed on to each, for example --benchmark_filter=Log.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")"
source tools/setup.sh

build release pelorin_benchmarks
found=no
for program in build/release/benchmarks/bench*; do
    if [[ -f $program && -x $program ]]; then
        found=yes
        say "${program##*/}"
        QT_QPA_PLATFORM=offscreen:configfile=tests/support/screen.json "$program" "$@"
    fi
done
[[ $found == yes ]] || die "there is no benchmark in build/release/benchmarks"
