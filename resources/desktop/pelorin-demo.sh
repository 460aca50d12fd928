#!/bin/sh
# Starts the Pelorin beside this command on simulated devices, wherever both are installed.
# Arguments are passed on; /CP: chooses another simulated sensor.
bin=$(dirname -- "$(readlink -f -- "$0")")
exec "$bin/pelorin" --demonstration "$@"
