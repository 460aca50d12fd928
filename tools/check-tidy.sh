#!/usr/bin/env bash
# Runs clang-tidy on the translation units under src/ that changed: those of the last commit
# and what is not committed yet. A changed header stands for the source file of its name.
# A file takes about 10 s, which is why not all are checked each time; name an older commit to
# check all that changed since then.
#   tools/check-tidy.sh [<build folder> [<commit> [<clang-tidy>]]]
# Ends with 77 when there is no history to tell what changed.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

build=${1:-build/dev}
base=${2:-HEAD~1}
tidy=${3:-clang-tidy}

# The folder may belong to another user than the one who runs the checks.
git() { command git -c safe.directory="$PWD" "$@"; }

if ! git rev-parse --verify --quiet HEAD >/dev/null 2>&1; then
    echo "There is no history here that tells what changed: nothing was checked."
    exit 77
fi
# A first commit, or a clone that holds the last one alone, has none before it.
if [[ $base == HEAD~1 ]] && ! git rev-parse --verify --quiet HEAD~1 >/dev/null; then
    base=HEAD
fi
changed=$(
    git diff --name-only --diff-filter=d "$base" -- src &&
        git ls-files --others --exclude-standard -- src
)

declare -A units=()
while read -r file; do
    unit=${file%.*}.cpp
    if [[ $file == *.@(h|cpp) && -f $unit ]]; then
        units[$unit]=1
    fi
done <<<"$changed"

if ((${#units[@]} == 0)); then
    echo "No translation unit under src/ changed since $base."
    exit 0
fi
printf 'Checking %s\n' "${!units[@]}"
printf '%s\0' "${!units[@]}" | xargs -0 -n 1 -P 2 "$tidy" -p "$build" --quiet
