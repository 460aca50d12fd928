#!/bin/sh
# Starts the Pelorin beside this command on simulated devices, wherever both are installed.
# Arguments are passed on; the first /CP: counts, so that one chooses another simulated sensor.
bin=$(dirname -- "$(readlink -f -- "$0")")
PELORIN_REGISTRY=$bin/../share/pelorin/demo.reg exec "$bin/pelorin" "$@" /CP:99
