#!/bin/bash
# Compiles every installed header alone and first, twice in a row, under each compiler that is here,
# with every warning an error; the headers for C callers also as C. Standards of C++ from 20 on get
# all headers together.
#   check.sh <source folder>
set -euo pipefail

export source_dir=$1
mapfile -t headers < <(cd "$source_dir/include" &&
                       ls vexmath/*.h vexmath/detail/*.h vexmath/interop/{numbers,span}.h
                       cd "$source_dir/src/platform/include" && ls vexmath_platform/*.h)
interop=()
c_headers=(vexmath/dynamic_array.h vexmath/gfxmath.h)
failures=0

# The headers for other libraries: those whose library is here.
libraries=$(pkg-config --cflags-only-I eigen3 2>/dev/null | sed 's/-I/-isystem /g; s/ *$//') || true
for pair in eigen:Eigen/Core glm:glm/glm.hpp imath:Imath/ImathVec.h \
    nlohmann_json:nlohmann/json.hpp; do
    # shellcheck disable=SC2086  # the options are words
    if echo "#include <${pair#*:}>" | c++ -E $libraries -x c++ - >/dev/null 2>&1; then
        interop+=("vexmath/interop/${pair%:*}.h")
    else
        echo "no <${pair#*:}> here, <vexmath/interop/${pair%:*}.h> is skipped"
    fi
done

# shellcheck disable=SC2317  # xargs calls it
# compile <standard> <header> <compiler and its options...>
compile() {
    local standard=$1 header=$2 language=c++
    [[ $standard == c++* ]] || language=c
    printf '#include <%s>\n#include <%s>\nint nothing;\n' "$header" "$header" |
        "${@:3}" -x "$language" -std="$standard" -Wall -Wextra -Wpedantic -Wshadow -Wconversion \
            -Werror -fsyntax-only -I "$source_dir/include" -I "$source_dir/src/platform/include" - ||
        { echo "FAILED: <$header> alone, as $standard with ${*:3}"; return 1; }
}
export -f compile

# check <compiler and its options> <standards> <header...>
check() {
    local standard
    for standard in $2; do printf "$standard %s $1\n" "${@:3}"; done |
        xargs -P "$(nproc)" -L 1 bash -c 'compile "$@"' compile || failures=$((failures + 1))
    echo "${1%% -isystem*}: $(($# - 2)) headers as $2"
}

for pair in g++:gcc clang++:clang; do
    command -v "${pair%:*}" >/dev/null || { echo "no ${pair%:*} here, skipped"; continue; }
    check "${pair%:*}" "c++17" "${headers[@]}"
    check "${pair%:*}" "c++20 c++2b" vexmath/vexmath.h vexmath/format.h vexmath/hash.h \
        vexmath/interop/span.h
    check "${pair%:*}${libraries:+ $libraries}" "c++17 c++20" "${interop[@]}"
    check "${pair#*:}" "c99 c17 c2x" "${c_headers[@]}"
done

# For Windows, clang reads the library of the GCC that is made for it.
if command -v clang++ >/dev/null && command -v x86_64-w64-mingw32-g++ >/dev/null; then
    library=$(dirname "$(x86_64-w64-mingw32-g++ -print-libgcc-file-name)")/include/c++
    windows="--target=x86_64-w64-mingw32 -isystem $library -isystem $library/x86_64-w64-mingw32"
    check "clang++ $windows" "c++17" "${headers[@]}"
    check "clang $windows" "c99" "${c_headers[@]}"
else
    echo "no clang++ or no headers for Windows here, skipped"
fi
exit $((failures > 0))
