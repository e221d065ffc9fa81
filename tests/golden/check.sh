#!/bin/bash
# Compares the golden program's lines with those that are kept beside this script.
#   check.sh <program and its runner...>   shows the difference and fails if there is one
#   check.sh --update <vexmath_golden>     stores the lines, when different bits are meant
set -euo pipefail

lines=$(dirname "$0")/bits.txt

if [[ $1 == --update ]]; then
    "$2" >"$lines"
else # a runner for Windows ends lines as Windows does
    diff "$lines" <("$@" | tr -d '\r') && echo "the same bits"
fi
