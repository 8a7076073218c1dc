#!/bin/bash
# Runs a script in a real script host and checks its result:
# run_script.sh WINE ANSWERER BOXES SCRIPT...
#   WINE      the Wine loader of the bitness wanted (it decides which cscript runs)
#   ANSWERER  box_answerer.exe of the same bitness
#   BOXES     the boxes it must show, one a line: style|title|text|pressed (\r, \n, \\ in texts);
#             "-" for none
#   SCRIPT... .vbs or .js in UTF-8, one behind the other; the host reads them in the ANSI code page
#             and prints in that of consoles
# cscript exits 0 when a script fails, so the last line printed must be "N comprobaciones
# correctas". The script finds the log of boxes shown so far, in UTF-8, as its first argument, and
# a folder of its own for files as its second.
#   KOVREL_HOST_PROGRAM  another host than cscript, with the same arguments
#   KOVREL_HOST_PRINTED  a file of the lines that must be printed before the last one
#   KOVREL_HOST_LIMIT    the seconds that the script may take
set -euo pipefail

wine=$1 answerer=$2 boxes=$3
shift 3
limit=${KOVREL_HOST_LIMIT:-90}
work=$(mktemp -d "${TMPDIR:-/tmp}/kovrel-host.XXXXXX")
trap 'rm -rf "$work"' EXIT

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

host=('C:\windows\system32\cscript.exe' //nologo)
if [ -n "${KOVREL_HOST_PROGRAM:-}" ]; then host=("$(windows_path "$KOVREL_HOST_PROGRAM")"); fi

copy="$work/$(basename "${!#}")"
cat "$@" | sed 's/\r*$/\r/' | iconv -f UTF-8 -t CP1252 >"$copy"
mkdir "$work/files"
: >"$work/log"
if [ "$boxes" != - ]; then
    sed 's/\r*$//' "$boxes" >"$work/expected"
else
    : >"$work/expected"
fi

code=0
timeout --kill-after=5 $((limit + 15)) "$wine" "$(windows_path "$answerer")" \
    "$(windows_path "$work/log")" "$(windows_path "$work/expected")" "$limit" \
    "${host[@]}" "$(windows_path "$copy")" \
    "$(windows_path "$work/log")" "$(windows_path "$work/files")" \
    </dev/null >"$work/printed" 2>&1 || code=$?

iconv -f CP850 -t UTF-8 "$work/printed" | tr -d '\r' >"$work/lines"
cat "$work/lines"
last=$(grep -v '^[[:space:]]*$' "$work/lines" | tail -n 1 || true)
if [ "$code" -ne 0 ]; then
    echo "FAILED: the host ended with code $code"
    exit 1
fi
if ! diff -u --label expected --label shown "$work/expected" "$work/log"; then
    echo "FAILED: the boxes shown are not the boxes expected"
    exit 1
fi
if ! grep -qxE '[1-9][0-9]* comprobaciones correctas' <<<"$last"; then
    echo "FAILED: the last line is not \"N comprobaciones correctas\""
    exit 1
fi
if [ -n "${KOVREL_HOST_PRINTED:-}" ] &&
    ! diff -u --label expected --label printed "$KOVREL_HOST_PRINTED" <(head -n -1 "$work/lines"); then
    echo "FAILED: the lines printed are not the lines expected"
    exit 1
fi
