#!/bin/bash
# Compiles every public header alone and first, twice in a row, under each compiler that is here,
# with every warning an error; the C-style headers also as C.
#   check.sh <source folder>
set -euo pipefail

source_dir=$1
includes=(-I "$source_dir/include" -I "$source_dir/src/platform/include")
warnings=(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror -fsyntax-only)
c_headers="vexmath/dynamic_array.h vexmath/gfxmath.h"

# compile <compiler> <language> <header>
compile() {
    local standard=c++17
    [[ $2 == c ]] && standard="c99"
    printf '#include <%s>\n#include <%s>\nint nothing;\n' "$3" "$3" |
        "$1" -x "$2" -std=$standard "${warnings[@]}" "${includes[@]}" - ||
        { echo "FAILED: <$3> alone, with $1 as $2"; return 1; }
}

headers=$(cd "$source_dir/include" && ls vexmath/*.h
          cd "$source_dir/src/platform/include" && ls vexmath_platform/*.h)
failures=0
for pair in g++:gcc clang++:clang; do
    compiler=${pair%%:*}
    command -v "$compiler" >/dev/null || { echo "no $compiler here, skipped"; continue; }
    for header in $headers; do
        compile "$compiler" c++ "$header" || failures=$((failures + 1))
    done
    for header in $c_headers; do
        [[ -e "$source_dir/include/$header" ]] || continue
        compile "${pair##*:}" c "$header" || failures=$((failures + 1))
    done
    echo "$compiler: $(wc -w <<<"$headers") headers"
done
exit $((failures > 0))
