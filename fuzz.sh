#!/usr/bin/env bash
# Builds the fuzz targets and runs each for some seconds; ends with the first finding.
#   ./fuzz.sh [<seconds, 60> [<arguments of libFuzzer>...]]
# With -runs=1000000 a target ends after so many inputs, too. What was found to lead anywhere new is
# kept in build/fuzz/corpus/ for the next time, an input that is a finding in build/fuzz/findings/.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")"
source tools/setup.sh
packages+=(clang-14 libclang-rt-14-dev)

seconds=${1:-60}
shift || true

build fuzz
mkdir -p build/fuzz/findings
found=no
for program in build/fuzz/fuzz/Fuzz*; do
    [[ -f $program && -x $program ]] || continue
    found=yes
    name=${program##*/}
    say "$name"
    mkdir -p "build/fuzz/corpus/$name"
    log=build/fuzz/findings/$name.log
    if ! "$program" -max_total_time="$seconds" -artifact_prefix=build/fuzz/findings/ -timeout=10 \
        -rss_limit_mb=1024 "$@" "build/fuzz/corpus/$name" "fuzz/seeds/$name" >"$log" 2>&1; then
        cat "$log" >&2
        die "$name has found something; the input is in build/fuzz/findings/"
    fi
    tail -n 1 "$log"
done
[[ $found == yes ]] || die "there is no fuzz target in build/fuzz/fuzz"
