#!/bin/bash
# Fails when operations.cpp does not call an exported function.
#   complete.sh <its object, not optimised>
set -euo pipefail
export LC_ALL=C

# Data, what the library itself calls and throws, and what is called through virtual tables.
others='^(vtable|typeinfo|uo_?GenSel|su_CArchiveError|CArchive::)'
others+='|::(addSlowly|release|scaleFromEye|pointPerp\(.*\*|extremePts|getFocusPoint)'
symbols=$(dirname "$0")/../abi/exported_symbols.txt
called=$(nm --undefined-only "$1" | awk '{ print $2 }' | c++filt | sort -u)
missing=$(grep -vE "$others" "$symbols" | sort | comm -23 - <(echo "$called"))
if [[ -n $missing ]]; then
    echo "tests/common/operations.cpp does not call"
    echo "$missing"
    exit 1
fi
