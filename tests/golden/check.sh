#!/bin/bash
# Compares the golden program's lines with those that are kept beside this script.
#   check.sh <vexmath_golden>
set -euo pipefail
diff "$(dirname "$0")/bits.txt" <("$1") && echo "the same bits"
