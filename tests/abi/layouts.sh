#!/bin/bash
# Compares symbols and layouts of the library with those of the last version in released/. Additions
# are shown and pass. Anything else breaks callers, and passes only under another soname: the ABI
# policy in the root CMakeLists.txt says which number of the version changes it.
#   layouts.sh <libvexmath.so with debug information>            compares
#   layouts.sh <libvexmath.so with debug information> --release  stores those of its version
set -euo pipefail

library=$1
released=$(dirname "$0")/released
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Both sides of the comparison come from here: abidiff overlooks what one side alone has filtered.
abidw --no-show-locs --no-comp-dir-path --no-corpus-path --drop-private-types \
    --headers-dir include --out-file "$work/new" "$library"

if [[ ${2:-} == --release ]]; then
    real=$(realpath "$library")
    kept=$released/${real##*.so.}/layouts.abi.xz
    mkdir -p "$(dirname "$kept")"
    xz --stdout "$work/new" >"$kept"
    echo "$kept: $(wc -c <"$kept") bytes"
    exit
fi

version=$(find "$released" -mindepth 1 -maxdepth 1 -printf "%f\n" | sort --version-sort | tail -1)
xz --decompress --stdout "$released/$version/layouts.abi.xz" >"$work/old"
if abidiff --no-added-syms "$work/old" "$work/new" >"$work/changes"; then
    abidiff "$work/old" "$work/new" || true # additions
    echo "no symbol of $version is gone, and no layout has changed"
    exit
fi

cat "$work/changes"
if grep -q '^SONAME changed' "$work/changes"; then
    echo "Callers of $version are broken, and the soname says so."
else
    echo "This breaks callers of $version: see the ABI policy in the root CMakeLists.txt."
    exit 1
fi
