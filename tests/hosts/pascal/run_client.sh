#!/bin/bash
# Compares what a program prints, in UTF-8, with a file: run_client.sh WINE PROGRAM EXPECTED
set -euo pipefail

wine=$1 program=$2 expected=$3
timeout 45 "$wine" "Z:${program//\//\\}" </dev/null | tr -d '\r' |
    diff -u --label expected --label printed "$expected" -
