#!/bin/bash
# Runs a test program with another user's settings (decimal point, month first): run_in_c_locale.sh
# WINE LIBRARY PROGRAM [ARGUMENTS].
# Wine keeps such settings in the prefix, for every program in it, and changes them whenever a
# program starts in another locale. So this one gets a copy of the prefix.
set -euo pipefail
source "$(dirname "$0")/../support/prefix_copy.sh"

wine=$1 library=$2 program=$3
shift 3
copy_prefix "${WINEPREFIX:?}"

export LC_ALL=C.UTF-8 LANG=C.UTF-8
"$wine" 'C:\windows\system32\regsvr32.exe' /s "Z:${library//\//\\}" || {
    echo "FAILED: cannot register $library"
    exit 1
}
code=0
"$wine" "Z:${program//\//\\}" "$@" || code=$?
exit "$code"
