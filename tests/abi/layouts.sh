#!/bin/bash
# Compares the symbols and the layouts of the library's types with those that are kept beside this
# script. Additions pass; anything else breaks callers.
#   layouts.sh <libvexmath.so with debug information>            shows the difference
#   layouts.sh <libvexmath.so with debug information> --update   writes them again
set -euo pipefail

library=$1
kept=$(dirname "$0")/layouts.abi.xz
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

if [[ ${2:-} == --update ]]; then
    abidw --no-show-locs --no-comp-dir-path --no-corpus-path --drop-private-types \
        --headers-dir include --out-file "$work/layouts.abi" "$library"
    xz --stdout "$work/layouts.abi" >"$kept"
    echo "$kept: $(wc -c <"$kept") bytes"
    exit
fi

xz --decompress --stdout "$kept" >"$work/layouts.abi"
# abidiff ends with 4 for a change that may be compatible, and with 8 more for one that is not.
status=0
abidiff --no-added-syms --drop-private-types --headers-dir2 include "$work/layouts.abi" \
    "$library" || status=$?
if ((status != 0)); then
    echo "What changed breaks callers: see the ABI policy in the root CMakeLists.txt."
    echo "When the change is meant, run ./dev abi --update and commit the file."
    exit 1
fi
echo "the same layouts, and no symbol is gone"
