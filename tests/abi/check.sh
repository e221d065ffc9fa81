#!/bin/bash
# Compares what the library exports with the list that is kept beside this script.
#   check.sh <libvexmath.so>            shows the difference and fails if there is one
#   check.sh <libvexmath.so> --update   stores the list
set -euo pipefail
export LC_ALL=C

library=$1
list=$(dirname "$0")/exported_symbols.txt

# Names as they are written, each once: a constructor has several symbols.
exported=$(nm --dynamic --defined-only --extern-only "$library" |
    awk '{ print $NF }' | c++filt | sort -u)

if [[ ${2:-} == --update ]]; then
    echo "$exported" >"$list"
    echo "$list: $(wc -l <"$list") symbols"
elif ! changes=$(diff <(sort -u "$list") <(echo "$exported")); then
    echo "The exported symbols are not those of tests/abi/exported_symbols.txt."
    sed -n -e 's/^< /  gone:  /p' -e 's/^> /  new:   /p' <<<"$changes"
    echo "What is gone breaks callers: see the ABI policy in the root CMakeLists.txt."
    echo "When the change is meant, run ./dev abi --update and commit the list."
    exit 1
fi
