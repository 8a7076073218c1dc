#!/bin/bash
# Checks by its symbols that the library has no dynamic initialisers and destructors, and that its
# tables are read-only: nothing_to_destroy.sh NM LIBRARY
set -euo pipefail

nm=$1 library=$2
symbols=$("$nm" -C "$library")
grep -q 'kovrel::clsFGen::class_info$' <<<"$symbols" || { echo "FAILED: no symbols"; exit 1; }
# The run time's emergency pool for exceptions (freeres) is allowed.
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
