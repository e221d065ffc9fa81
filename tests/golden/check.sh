#!/bin/bash
# Compares the golden program's lines with those that are kept beside this script.
#   check.sh <vexmath_golden>            shows the difference and fails if there is one
#   check.sh <vexmath_golden> --update   stores the lines, when different bits are meant
set -euo pipefail

program=$1
lines=$(dirname "$0")/bits.txt

if [[ ${2:-} == --update ]]; then
    "$program" >"$lines"
else
    diff "$lines" <("$program") && echo "the same bits"
fi
