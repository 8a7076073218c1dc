#!/bin/bash
# Runs a test program with another user's settings (decimal point, month first): run_in_c_locale.sh
# WINE LIBRARY PROGRAM [ARGUMENTS].
# Wine keeps such settings in the prefix, for every program in it, and changes them whenever a
# program starts in another locale. So this one gets a copy of the prefix, whose system files are
# only links to those of the original.
set -euo pipefail

wine=$1 library=$2 program=$3
shift 3
original=${WINEPREFIX:?}
copy=$(mktemp -d "$original.XXXXXX")
end() {
    WINEPREFIX="$copy" wineserver -k >/dev/null 2>&1 || true
    WINEPREFIX="$copy" timeout 10 wineserver -w >/dev/null 2>&1 || true
    rm -rf "$copy"
}
trap end EXIT
trap 'exit 143' TERM INT HUP

cp -al "$original/." "$copy"
# What is written to must be the copy's own.
for file in "$copy"/*.reg; do
    cp "$file" "$file.own"
    mv "$file.own" "$file"
done

export WINEPREFIX="$copy" LC_ALL=C.UTF-8 LANG=C.UTF-8
"$wine" 'C:\windows\system32\regsvr32.exe' /s "Z:${library//\//\\}" || {
    echo "FAILED: cannot register $library"
    exit 1
}
code=0
"$wine" "Z:${program//\//\\}" "$@" || code=$?
exit "$code"
