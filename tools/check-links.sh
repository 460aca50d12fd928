#!/usr/bin/env bash
# Fails on every link of the documentation that leads nowhere: to a file that is not there, or to
# a heading that its page does not have.
#   tools/check-links.sh [<project folder>]
set -euo pipefail
cd -- "${1:-$(dirname -- "${BASH_SOURCE[0]}")/..}"

# Prints a page without what is code.
prose() {
    # shellcheck disable=SC2016 # the quotes are those of Markdown
    awk '/^ *```/ { code = !code; next } !code' "$1" | sed 's/`[^`]*`//g'
}

# Prints the anchors that a page's headings get.
anchors() {
    awk '/^ *```/ { code = !code; next } !code && /^#+ /' "$1" |
        sed -e 's/^#* //' -e 's/[^[:alnum:] _-]//g' -e 's/ /-/g' | tr '[:upper:]' '[:lower:]'
}

faults=0
while IFS= read -r -d '' page; do
    while IFS= read -r target; do
        [[ $target =~ ^(https?|mailto): ]] && continue
        file=${target%%#*}
        anchor=${target#"$file"}
        file=${file:+${page%/*}/$file}
        file=${file:-$page}
        if [[ ! -e $file ]] ||
            { [[ -n $anchor ]] && ! anchors "$file" | grep -qxF -- "${anchor#\#}"; }; then
            echo "$page: $target leads nowhere"
            faults=$((faults + 1))
        fi
    done < <(prose "$page" | grep -oP '\]\(\K[^)\s]+')
done < <(find . \( -path ./build -o -path ./.git \) -prune -o -name '*.md' -print0)
[[ $faults -eq 0 ]]
