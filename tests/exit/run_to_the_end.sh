#!/bin/bash
# Runs a host and checks what its module prints at exit: run_to_the_end.sh WINE PROGRAM LIBRARY WAY
set -euo pipefail

wine=$1 program=$2 library=$3 way=$4
windows_path() { echo "Z:${1//\//\\}"; }
status=0
printed=$(timeout 50 "$wine" "$(windows_path "$program")" "$(windows_path "$library")" "$way" \
    </dev/null | tr -d '\r') || status=$?
echo "$printed"
if [ "$status" != 0 ] || grep -q WRONG <<<"$printed" || [ "${printed##*$'\n'}" != end ]; then
    echo "FAILED: exit code $status"
    exit 1
fi
