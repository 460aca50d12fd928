#!/usr/bin/env bash
# The check of the documentation's links finds those that lead nowhere, and no others.
#   TestLinkCheck.sh <project folder>
# shellcheck disable=SC2016 # the quotes are those of Markdown
set -euo pipefail

check=$1/tools/check-links.sh
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
mkdir "$folder/docs"
printf '# Other page, 2\n\n```\n# no heading\n```\n' >"$folder/docs/other.md"

# expect <exit code> <text of the page>
expect() {
    local status=0
    printf '# Top\n%s\n' "$2" >"$folder/page.md"
    "$check" "$folder" >"$folder/found" || status=$?
    if [[ $status -ne $1 || $(wc -l <"$folder/found") -ne $1 ]]; then
        echo "The check ended with $status, not $1, for: $2"
        exit 1
    fi
}

expect 0 '[a](docs/other.md) [b](docs/other.md#other-page-2) [c](#top) [d](https://nowhere.invalid/x)'
expect 0 '`[](const QString& name)` ![](docs)'
expect 1 '[a](docs/missing.md)'
expect 1 '![a](docs/missing.png)'
expect 1 '[a](docs/other.md#no-heading)'
expect 1 '[a](#other-page-2)'
