#!/bin/bash
# Keeps README.md and the pages that it names true: their C and C++ programs compile without a
# warning, link, run, and print what the page says; the headers of the README's tables are those that
# exist. A block without main is linked with the next program of its page.
#   check.sh <source folder> <libvexmath.so> <work folder> <C++ compiler> <C compiler>
set -euo pipefail

source_dir=$1 library_dir=$(dirname "$2") work=$3 cxx=$4 cc=$5
rm -rf "$work"
mkdir -p "$work"
cd "$source_dir"

# compile <block>: to an object
compile() {
    local with=("$cxx" -std=c++17)
    [[ $1 != *.c ]] || with=("$cc" -std=c99)
    "${with[@]}" -Wall -Wextra -Wpedantic -Werror -I include -I src/platform/include -c "$1" -o "$1.o"
}

# run_program <page> <object...>: C++ needs its own linker
run_program() {
    local page=$1 linker=$cc line
    shift
    [[ $* != *.cpp.o* ]] || linker=$cxx
    "$linker" "$@" -o "$work/program" -L "$library_dir" -Wl,-rpath,"$library_dir" -lvexmath
    while read -r line; do
        grep -qF "$line" "$page" || { echo "$page does not say that its program prints: $line"; exit 1; }
    done < <("$work/program" || echo "a failure")
}

programs=0
for page in README.md $(grep -o '](\([^):#]*\.md\))' README.md | tr -d '()]' | sort -u); do
    [[ $page != docs/interop.md && $page != docs/coming-from.md ]] || continue # see blocks.py
    mkdir -p "$work/$page"
    awk -v work="$work/$page" '
        /^```(c|cpp)$/ { file = sprintf("%s/%03d.%s", work, ++count, substr($0, 4)); next }
        /^```/         { file = "" }
        file           { print > file }' "$page"
    objects=()
    while read -r block; do
        compile "$block"
        objects+=("$block.o")
        grep -q '^int main(' "$block" || continue
        run_program "$page" "${objects[@]}"
        objects=()
        programs=$((programs + 1))
    done < <(find "$work/$page" -name '*.c*' ! -name '*.o' | sort)
    ((${#objects[@]} == 0)) || { echo "$page ends with a block that no program uses"; exit 1; }
done
echo "$programs programs of the README and its pages are right"

# shellcheck disable=SC2016  # the back quotes are the README's
diff <(grep '^|' README.md | grep -o '`[a-z_0-9/]*\.h`' | tr -d '`' | sort -u) \
    <(cd include/vexmath && printf '%s\n' *.h interop/*.h | sort) ||
    { echo "the README names the headers on the left, those on the right exist"; exit 1; }
