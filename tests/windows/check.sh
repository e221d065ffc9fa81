#!/bin/bash
# Checks the DLL that is built for Windows on another system.
#   check.sh exports <DLL> <objdump>   the names that callers link are those of the Linux library
#   check.sh imports <DLL> <objdump>   it needs nothing beside Windows
#   check.sh package <build folder> <work folder> <toolchain file> [runner...]
set -euo pipefail
export LC_ALL=C

tests=$(cd "$(dirname "$0")/.." && pwd)

# The inline functions of lists and the run-time type names are compiled into each module instead.
on_windows() { grep -vE '^(suDynamicArray<|typeinfo (name )?for )' | sort -u; }

case $1 in
exports)
    diff <(on_windows <"$tests/abi/exported_symbols.txt") \
        <("$3" -p "$2" | sed -n '/Ordinal\/Name Pointer/,/^$/p' | awk '/\[ *[0-9]+\]/ { print $NF }' |
            c++filt | on_windows)
    ;;
imports)
    system='kernel32|msvcrt|ucrtbase|api-ms-win-crt-[a-z-]*-l1-1-0'
    facts=$("$3" -p "$2")
    if awk '/DLL Name:/ { print tolower($3) }' <<<"$facts" | grep -vE "^($system)\.dll$"; then exit 1; fi
    for protection in DYNAMIC_BASE NX_COMPAT; do
        grep -q "$protection" <<<"$facts" || { echo "no $protection"; exit 1; }
    done
    ;;
package)
    build=$2 work=$3 toolchain=$4 runner=("${@:5}")
    rm -rf "$work"
    cmake --install "$build" --prefix "$work/first" >/dev/null
    mv "$work/first" "$work/installed"
    cmake -S "$tests/package/find_package" -B "$work/consumer" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_PREFIX_PATH="$work/installed" >/dev/null
    cmake --build "$work/consumer" >/dev/null
    cp "$work/installed/bin/libvexmath.dll" "$work/consumer"
    if ((${#runner[@]})); then "${runner[@]}" "$work/consumer/consumer.exe"; fi
    ;;
*)
    echo "unknown check: $1"
    exit 2
    ;;
esac
