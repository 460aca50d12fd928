#!/usr/bin/env bash
# Builds Pelorin and starts it on a simulated sensor; arguments are passed on to it.
#   ./run.sh [/CP:98]
# Without a display the tour runs instead: the real program off screen, every page visited
# by real clicks, one picture per page in build/tour, the values read printed as text. Arguments are
# the tour's then: ./run.sh --language 2 --size 1280x720 --dark; --help tells of them.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")"
source tools/setup.sh

if [[ -n ${DISPLAY:-} || -n ${WAYLAND_DISPLAY:-} ]]; then
    if [[ -z ${DISPLAY:-} ]]; then
        packages+=(qt6-wayland)
    fi
    build dev pelorin
    say "Starting Pelorin"
    # On a copy, which its settings dialog may change.
    cp -- build/dev/share/pelorin/demo.reg build/demo.reg
    PELORIN_REGISTRY=$PWD/build/demo.reg build/dev/bin/pelorin "$@" /CP:99
else
    build dev pelorin-tour
    say "No display: running the tour, pictures go to build/tour"
    # The user's own settings and profile stay out of it.
    XDG_CONFIG_HOME=$PWD/build/tour/config \
        XDG_DATA_HOME=$PWD/build/tour/data \
        QT_QPA_PLATFORM=offscreen:configfile=tests/support/screen.json \
        build/dev/bin/pelorin-tour build/tour "$@"
fi
