#!/bin/bash
# Runs a test program with another user's settings: run_in_locale.sh LOCALE WINE LIBRARY PROGRAM
# [ARGUMENTS]. C has a decimal point and the month first. A locale of another language is made for
# the run; status 77 where that cannot be done.
# Wine keeps such settings in the prefix, for every program in it, and changes them whenever a
# program starts in another locale. So this one gets a copy of the prefix.
set -euo pipefail
source "$(dirname "$0")/../support/prefix_copy.sh"

locale=$1 wine=$2 library=$3 program=$4
shift 4
copy_prefix "${WINEPREFIX:?}"

if [ "$locale" != C ]; then
    export LOCPATH=$WINEPREFIX/locales
    mkdir "$LOCPATH"
    localedef -i "$locale" -f UTF-8 "$LOCPATH/$locale.UTF-8" || {
        echo "SKIPPED: no locale $locale can be made"
        exit 77
    }
fi
export LC_ALL=$locale.UTF-8 LANG=$locale.UTF-8
"$wine" 'C:\windows\system32\regsvr32.exe' /s "Z:${library//\//\\}" || {
    echo "FAILED: cannot register $library"
    exit 1
}
code=0
"$wine" "Z:${program//\//\\}" "$@" || code=$?
exit "$code"
