#!/bin/bash
# Compiles every installed header alone and first, twice in a row, under each compiler that is here and
# each standard of C++ from 17 on, with every warning an error; the headers for C callers also as C,
# and comparisons.h, because newer standards read comparisons in another way.
#   check.sh <source folder>
#   check.sh --one <standard> <header> <compiler and its options...>, with $source_dir
set -euo pipefail

if [[ $1 == --one ]]; then
    standard=$2 header=$3 language=c++
    shift 3
    [[ $standard == c++* ]] || language=c
    printf '#include <%s>\n#include <%s>\nint nothing;\n' "$header" "$header" |
        "$@" -x "$language" -std="$standard" -Wall -Wextra -Wpedantic -Wshadow -Wconversion \
            -Werror -fsyntax-only -I "$source_dir/include" -I "$source_dir/tests/headers" \
            -I "$source_dir/src/platform/include" - && exit
    echo "FAILED: <$header> alone, as $standard with $*"
    exit 1
fi

export source_dir=$1
mapfile -t headers < <(cd "$source_dir/include" && ls vexmath/*.h vexmath/detail/*.h
                       cd "$source_dir/src/platform/include" && ls vexmath_platform/*.h)
c_headers=(vexmath/dynamic_array.h vexmath/gfxmath.h)
failures=0

# check <compiler and its options> <standards> <header...>
check() {
    local compiler=$1 standards=$2 standard header
    shift 2
    for standard in $standards; do
        for header in "$@"; do echo "$standard $header $compiler"; done
    done | xargs -P "$(nproc)" -L 1 "$0" --one || failures=$((failures + 1))
    echo "${compiler%% -isystem*}: $# headers as $standards"
}

for pair in g++:gcc clang++:clang; do
    command -v "${pair%:*}" >/dev/null || { echo "no ${pair%:*} here, skipped"; continue; }
    check "${pair%:*}" "c++17 c++20 c++2b" "${headers[@]}" comparisons.h
    check "${pair#*:}" "c99 c17 c2x" "${c_headers[@]}"
done

# For Windows, clang reads the library of the GCC that is made for it.
if command -v clang++ x86_64-w64-mingw32-g++ >/dev/null; then
    library=$(dirname "$(x86_64-w64-mingw32-g++ -print-libgcc-file-name)")/include/c++
    windows="--target=x86_64-w64-mingw32 -isystem $library -isystem $library/x86_64-w64-mingw32"
    check "clang++ $windows" "c++17" "${headers[@]}" comparisons.h
    check "clang $windows" "c99" "${c_headers[@]}"
else
    echo "no clang++ or no headers for Windows here, skipped"
fi
exit $((failures > 0))
