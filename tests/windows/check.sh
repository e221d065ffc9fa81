#!/bin/bash
# Checks the DLL that is built for Windows on another system.
#   check.sh exports <DLL> <objdump>   the names that callers link are those of the Linux library
#   check.sh imports <DLL> <objdump>   it needs nothing beside Windows
#   check.sh clang <source folder>     clang for Windows and the dialect of MSVC read every source
#   check.sh package <build folder> <work folder> <toolchain file> [runner...]
set -euo pipefail
export LC_ALL=C

tests=$(cd "$(dirname "$0")/.." && pwd)

# The rule: the DLL exports the names of the Linux library, except the inline functions and virtual
# tables of lists and the run-time type names. On Windows each module has its own. Also left out are
# parts of functions that GCC has split.
on_windows() {
    grep -vE '^((vtable for )?suDynamicArray<|typeinfo (name )?for )|\[clone ' | sort -u
}

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
clang)
    export source=$2
    library=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-libgcc-file-name)")/include/c++
    # shellcheck disable=SC2317  # xargs calls it
    read_source() {
        clang++ "${@:2}" -std=c++17 -fsyntax-only -DVEXMATH_BUILDING -Wall -Wextra -Wpedantic \
            -Wshadow -Wconversion -Werror -I "$source/include" -I "$source/src" \
            -I "$source/src/platform/include" "$1" || { echo "FAILED: $*"; return 1; }
    }
    export -f read_source
    read_all() { find "$source/src" -name '*.cpp' -print0 |
        xargs -0 -P "$(nproc)" -I{} bash -c 'read_source "$@"' read_source {} "$@"; }
    for processor in x86_64 i686; do
        read_all "--target=$processor-w64-mingw32" -msse2 -isystem "${library/x86_64/$processor}" \
            -isystem "${library/x86_64/$processor}/$processor-w64-mingw32"
    done
    read_all --target=x86_64-w64-mingw32 -isystem "$library" -isystem "$library/x86_64-w64-mingw32" \
        -fms-extensions -fdelayed-template-parsing -include "$tests/windows/as_msvc.h" \
        -Wno-builtin-macro-redefined
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
    # The runner of 32-bit programs ends with 77 where its Wine is not installed.
    ((${#runner[@]} == 0)) || "${runner[@]}" "$work/consumer/consumer.exe" || (($? == 77))
    ;;
*)
    echo "unknown check: $1"
    exit 2
    ;;
esac
