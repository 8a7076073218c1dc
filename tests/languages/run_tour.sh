#!/bin/bash
# Runs a program or a script that goes through the library's classes, and compares what it prints:
# run_tour.sh WINE FILE EXPECTED [LEFT_OUT]
#   FILE      .exe, or .vbs or .js in UTF-8 for the script host of WINE's bitness
#   LEFT_OUT  an expression: the expected lines that this language cannot print
set -euo pipefail

wine=$1 file=$2 expected=$3 left_out=${4:-^$}
work=$(mktemp -d "${TMPDIR:-/tmp}/kovrel-tour.XXXXXX")
trap 'rm -rf "$work"' EXIT
mkdir "$work/files"

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

case "$file" in
    *.exe)
        command=("$(windows_path "$file")")
        code_page=UTF-8
        ;;
    *)
        # The host reads the system's code page and prints that of consoles.
        sed 's/\r*$/\r/' "$file" | iconv -f UTF-8 -t CP1252 >"$work/${file##*/}"
        command=('C:\windows\system32\cscript.exe' //nologo "$(windows_path "$work/${file##*/}")")
        code_page=CP850
        ;;
esac
timeout 60 "$wine" "${command[@]}" "$(windows_path "$work/files")" </dev/null >"$work/printed"
diff -u --label expected --label printed <(grep -vE "$left_out" "$expected") \
    <(iconv -f "$code_page" -t UTF-8 "$work/printed" | tr -d '\r')
