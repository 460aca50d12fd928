#!/usr/bin/env bash
# Fails on every #include under src/ that does not follow the order of the layers.
#   tools/check-layers.sh <project folder> <folder of the QtWidgets headers>
set -euo pipefail

source=$1/src
qt_widgets=$2
[[ -f $qt_widgets/QWidget ]] || {
    echo "$qt_widgets does not hold the QtWidgets headers"
    exit 1
}

# What each folder may include besides itself.
declare -A may_include=(
    [cli]="sensor link platform/core"
    [app]="tempcomp backup display pages sensor link platform/ui platform/core"
    [tempcomp]="pages sensor link platform/ui platform/core"
    [backup]="sensor link platform/ui platform/core"
    [display]="platform/ui platform/core"
    [pages]="sensor link platform/ui platform/core"
    [sensor]="link platform/core"
    [link]="platform/core"
    [simulator]="platform/core"
    [platform/ui]="platform/core"
    [platform/core]=""
)
without_widgets=" cli sensor link simulator platform/core "

# find_layer <path below src>: sets found to its folder, two deep in platform, or to nothing.
find_layer() {
    found=""
    if [[ $1 =~ ^(platform/[^/]+|[^/]+)/ && -n ${may_include[${BASH_REMATCH[1]}]+known} ]]; then
        found=${BASH_REMATCH[1]}
    fi
}

is_widgets_header() {
    [[ $1 == QtWidgets || $1 == QtWidgets/* || ($1 != */* && -f $qt_widgets/$1) ]]
}

faults=0
fault() {
    faults=$((faults + 1))
    echo "src/$file:$line: $*"
}

check_project_header() {
    [[ $header == *.moc ]] && return
    find_layer "$header"
    if [[ -z $found ]]; then
        fault "\"$header\" is not written from src/"
    elif [[ $found != "$layer" && " ${may_include[$layer]} " != *" $found "* &&
        ! ($found == simulator && $file =~ ^(app|cli)/main.cpp$) ]]; then
        fault "$layer must not include $found (\"$header\")"
    fi
}

check_system_header() {
    if [[ $without_widgets == *" $layer "* ]] && is_widgets_header "$header"; then
        fault "$layer knows no widgets (<$header>)"
    fi
}

include_pattern='^[[:space:]]*#[[:space:]]*include[[:space:]]*([<"])([^>"]+)'
seen=0
while IFS=: read -r file line text; do
    file=${file#"$source/"}
    find_layer "$file"
    layer=$found
    [[ $text =~ $include_pattern ]] || continue
    delimiter=${BASH_REMATCH[1]}
    header=${BASH_REMATCH[2]}
    seen=$((seen + 1))
    if [[ -z $layer ]]; then
        fault "this folder is no layer"
    elif [[ $delimiter == '"' ]]; then
        check_project_header
    else
        check_system_header
    fi
done < <(grep -rnE --include='*.h' --include='*.cpp' '^[[:space:]]*#[[:space:]]*include' "$source")

echo "$seen includes, $faults against the order of the layers"
((seen > 0 && faults == 0))
