#!/usr/bin/env bash
# Fails on every C++ file that clang-format would change.
#   tools/check-format.sh [<clang-format>]
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

find src tests tools benchmarks fuzz -name '*.h' -print0 -o -name '*.cpp' -print0 |
    xargs -0 "${1:-clang-format}" --dry-run --Werror
