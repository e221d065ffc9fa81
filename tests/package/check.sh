#!/bin/bash
# Uses the library as a stranger would: installs it, moves the installed tree, then builds and runs
# a small program against it.
#   check.sh install <build folder> <work folder>
#   check.sh find_package|pkg_config <work folder> <compiler>
#   check.sh seam|static <work folder> <compiler> <source folder>
# seam and static embed the library in another project: shared with a host's own platform types, and
# static with the default ones. static installs it from there too.
set -euo pipefail

tests=$(cd "$(dirname "$0")/.." && pwd)
how=$1

# configure_build_run <source of the program> <build folder> <arguments of cmake...>
configure_build_run() {
    quietly cmake -S "$1" -B "$2" -DCMAKE_CXX_COMPILER="$compiler" "${@:3}"
    quietly cmake --build "$2" --parallel 2
    "$2/consumer"
}

# Shows what a command prints only when it fails.
quietly() {
    local printed
    printed=$("$@" 2>&1) || { echo "$printed"; return 1; }
}

# The installed files, each once: without version numbers, and with lib for the system's own folder.
installed_files() {
    (cd "$1" && find . ! -type d) |
        sed -E -e 's|^\./||' -e 's|^lib[^/]*/([a-z]+-linux-[a-z]+/)?|lib/|' -e 's|\.so\.[0-9.]*[0-9](-gdb\.py)?$|.so.VERSION\1|' \
            -e 's|-targets-[a-z]+\.cmake$|-targets-CONFIG.cmake|' | LC_ALL=C sort -u
}

if [[ $how == install ]]; then
    build=$2 work=$3
    rm -rf "$work"
    cmake --install "$build" --prefix "$work/first" >/dev/null
    mv "$work/first" "$work/installed"
    diff "$tests/package/installed_files.txt" <(installed_files "$work/installed")
    exit
fi

work=$2 compiler=$3
rm -rf "${work:?}/$how"
case $how in
find_package)
    configure_build_run "$tests/package/find_package" "$work/$how" -DCMAKE_PREFIX_PATH="$work/installed"
    ;;
pkg_config)
    library_dir=$(dirname "$(find "$work/installed" -name libvexmath.so)")
    export PKG_CONFIG_PATH=$library_dir/pkgconfig LD_LIBRARY_PATH=$library_dir
    mkdir -p "$work/$how"
    # shellcheck disable=SC2046  # the flags are words
    "$compiler" -std=c++17 "$tests/package/consumer.cpp" -o "$work/$how/consumer" \
        $(pkg-config --cflags --libs vexmath)
    "$work/$how/consumer"
    ;;
static)
    configure_build_run "$tests/package/add_subdirectory" "$work/static/embedded" \
        -DVEXMATH_SOURCE="$4" -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF -DVEXMATH_INSTALL=ON
    quietly cmake --install "$work/static/embedded" --prefix "$work/static/installed"
    configure_build_run "$tests/package/find_package" "$work/static/consumer" \
        -DCMAKE_PREFIX_PATH="$work/static/installed"
    if ldd "$work/static/consumer/consumer" | grep vexmath; then
        echo "the program still needs the shared library"
        exit 1
    fi
    ;;
seam)
    configure_build_run "$tests/seam" "$work/$how" -DVEXMATH_SOURCE="$4"
    ;;
*)
    echo "unknown way to use the library: $how"
    exit 2
    ;;
esac
