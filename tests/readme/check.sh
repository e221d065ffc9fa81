#!/bin/bash
# Keeps the README true: its programs compile without a warning, link and run, and the headers of
# its tables are those that exist.
#   check.sh <source folder> <libvexmath.so> <work folder> <compiler>
set -euo pipefail

source_dir=$1 library=$2 work=$3 compiler=$4
rm -rf "$work"
mkdir -p "$work"

awk -v work="$work" '
    /^```cpp$/ { file = work "/program" ++count ".cpp"; next }
    /^```/     { file = "" }
    file       { print > file }' "$source_dir/README.md"

library_dir=$(dirname "$library")
for program in "$work"/*.cpp; do
    "$compiler" -std=c++17 -Wall -Wextra -Wpedantic -Werror -I "$source_dir/include" \
        -I "$source_dir/src/platform/include" "$program" -o "${program%.cpp}" \
        -L "$library_dir" -Wl,-rpath,"$library_dir" -lvexmath
    printed=$("${program%.cpp}")
    grep -qF "\`$printed\`" "$source_dir/README.md" ||
        { echo "the README does not say that its program prints: $printed"; exit 1; }
done

# shellcheck disable=SC2016  # the back quotes are the README's
diff <(grep '^|' "$source_dir/README.md" | grep -o '`[a-z_0-9/]*\.h`' | tr -d '`' | sort -u) \
    <(cd "$source_dir/include/vexmath" && printf '%s\n' *.h interop/*.h | sort) ||
    { echo "the README names the headers on the left, those on the right exist"; exit 1; }
