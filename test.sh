#!/usr/bin/env bash
# Builds the project and runs all its tests; ends with the result of the tests.
#   ./test.sh [dev|asan|tsan|release] [<arguments for ctest>...]
# What is missing of Debian's packages is installed first.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")"
source tools/setup.sh

preset=${1:-dev}
shift || true
runner=(ctest --preset "$preset" "$@")
case $preset in
dev | release) ;;
asan | tsan)
    # The sanitizers lay out memory themselves and fail on systems that randomise too
    # many address bits; a container may forbid switching that off, then it stays.
    if setarch -R true 2>/dev/null; then
        runner=(setarch -R "${runner[@]}")
    fi
    ;;
*) die "usage: ./test.sh [dev|asan|tsan|release] [<arguments for ctest>...]" ;;
esac

build "$preset"
generate_german_locale
say "Running the tests of build/$preset"
"${runner[@]}"
