#!/bin/bash
# Runs the example with the library registered: run_registered.sh WINE EXAMPLE EXPECTED
set -euo pipefail

wine=$1 example=$2 expected=$3
receipt() {
    timeout 60 "$wine" "Z:${example//\//\\}" "$@" </dev/null | tr -d '\r'
}

receipt 12345678a 1234.56 2 2024 | diff -u --label expected --label printed "$expected" -
echo "a month that there is none of:"
if printed=$(receipt 12345678Z 1 32 2024); then
    echo "FAILED: the failure is not in the exit code"
    exit 1
fi
diff -u --label expected --label printed - <(echo "$printed") <<'LINES'
NIF:     12345678Z
Importe: UN EURO
Error 13 en Kovrel.clsFFechas: No coinciden los tipos
LINES
