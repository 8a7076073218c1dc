#!/bin/bash
# What the library's code leaves to be made at its loading or destroyed at its end, read from its
# symbols: nothing_to_destroy.sh NM LIBRARY
set -euo pipefail

nm=$1 library=$2
symbols=$("$nm" -C "$library")
grep -q 'kovrel::clsFGen::class_info$' <<<"$symbols" || { echo "FAILED: no symbols"; exit 1; }
# The run time's store for exceptions without memory is made at loading, and stays.
if made=$(grep -E '_GLOBAL__(sub_)?[ID]_' <<<"$symbols" | grep -v 'freeres'); then
    echo "FAILED: made or destroyed by the run time:"
    echo "$made"
    exit 1
fi
if ! grep 'kovrel::[A-Za-z]*::class_info$' <<<"$symbols" | grep -qv ' R ' &&
    grep -q ' R kovrel::library$' <<<"$symbols"; then
    exit 0
fi
echo "FAILED: tables that are not read-only:"
grep -E 'kovrel::([A-Za-z]*::class_info|library)$' <<<"$symbols"
exit 1
