#!/bin/bash
# Runs a test program on a small screen of its own, with a given resolution and given colours:
# run_on_display.sh WINE LIBRARY DOTS_PER_INCH COLOURS PROGRAM [ARGUMENTS]
#   COLOURS   "usual", or the registry lines in the file COLOURS.reg beside this script
# Wine keeps both in the prefix, so the program runs in a copy of it.
set -euo pipefail
here=$(dirname "$0")
source "$here/../support/prefix_copy.sh"

wine=$1 library=$2 resolution=$3 colours=$4 program=$5
shift 5
copy_prefix "${WINEPREFIX:?}/.unregistered"

display_pids=()
end_display() {
    end_prefix_copy
    local pid
    for pid in "${display_pids[@]}"; do kill "$pid" 2>/dev/null || true; done
}
trap end_display EXIT

answer="$WINEPREFIX/display"
: >"$answer"
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$answer" >/dev/null 2>&1 &
display_pids+=($!)
tries=0
until [ -s "$answer" ]; do
    [ $((tries += 1)) -le 400 ] || { echo "FAILED: Xvfb did not start"; exit 1; }
    sleep 0.05
done
DISPLAY=":$(tr -d '[:space:]' <"$answer")"
export DISPLAY
HOME="$WINEPREFIX" openbox --sm-disable >/dev/null 2>&1 &
display_pids+=($!)

# A blinking caret would be in some pictures and not in others.
printf '\n[Control Panel\\\\Desktop]\n"LogPixels"=dword:%08x\n"CursorBlinkRate"="-1"\n' \
    "$resolution" >>"$WINEPREFIX/user.reg"
if [ "$colours" != usual ]; then cat "$here/$colours.reg" >>"$WINEPREFIX/user.reg"; fi

# Otherwise the first program starts it, and whoever reads that program's output waits for it too.
/usr/lib/wine/wine64 explorer /desktop </dev/null >/dev/null 2>&1 &
display_pids+=($!)
"$wine" 'C:\windows\system32\regsvr32.exe' /s "Z:${library//\//\\}" || {
    echo "FAILED: cannot register $library"
    exit 1
}
code=0
KOVREL_RESOLUTION=$resolution KOVREL_COLOURS=$colours "$wine" "Z:${program//\//\\}" "$@" || code=$?
exit "$code"
