#!/bin/bash
# Makes packages of the committed tree in build/package, and uses each one: installs it into an empty
# folder, then builds and runs a program against it.
#   package.sh [debian|vcpkg|conan|archive|windows...]
set -euo pipefail
cd "$(dirname "$0")/.."

work=$PWD/build/package
version=$(sed -n 's/^  VERSION \([0-9.]*\)$/\1/p' CMakeLists.txt)
windows_runner=/usr/lib/wine/wine64

say() { printf '\n== %s\n' "$*"; }

# consumer <prefix> <build folder> <arguments of cmake...>: a program that finds the package there.
consumer() {
    cmake -S tests/package/find_package -B "$2" -G Ninja -DCMAKE_PREFIX_PATH="$1" "${@:3}" >/dev/null
    cmake --build "$2" >/dev/null
}

make_debian() {
    local tree=$work/debian/vexmath-$version package
    mkdir -p "$tree"
    git archive HEAD | tar -x -C "$tree"
    tar -czf "$work/debian/vexmath_$version.orig.tar.gz" -C "$work/debian" "vexmath-$version"
    packaging/debian/fill.py "$tree" "$(git log -1 --format=%cD)"
    say "building the Debian packages"
    (cd "$tree" && dpkg-buildpackage -us -uc >"$work/debian/build.log" 2>&1) ||
        { tail -20 "$work/debian/build.log" | cut -c1-200; exit 1; }
    say "lintian"
    lintian --fail-on error,warning "$work/debian/vexmath_$version"-1_*.changes
    say "using them"
    for package in "$work/debian"/*.deb; do
        dpkg-deb --info "$package" | grep -E '^ (Package|Installed-Size)'
        dpkg-deb -x "$package" "$work/debian/root"
    done
    consumer "$work/debian/root/usr" "$work/debian/consumer"
    "$work/debian/consumer/consumer"
}

make_vcpkg() {
    local library
    say "running the vcpkg port"
    python3 - "$version" <<'PYTHON'
import json, sys
port = json.load(open('packaging/vcpkg/vexmath/vcpkg.json'))
sys.exit(port['version'] != sys.argv[1] and f"the port has version {port['version']}")
PYTHON
    cmake -D CURRENT_PACKAGES_DIR="$work/vcpkg/packages" -D WORK="$work/vcpkg/build" \
        -P packaging/vcpkg/stand_in.cmake
    for library in "$work/vcpkg/packages"/{,debug/}lib; do
        finds_printers "$library"
    done
    consumer "$work/vcpkg/packages" "$work/vcpkg/consumer"
    "$work/vcpkg/consumer/consumer"
}

# finds_printers <folder>: the script that gdb loads with the library names the printers' folder.
finds_printers() {
    local printers
    printers=$(sed -n 's/.*join(_folder, "\(.*\)").*/\1/p' "$1"/*-gdb.py)
    [[ -f $1/$printers/vexmath_gdb.py ]] || { echo "$1 names no printers for gdb"; exit 1; }
}

# Conan itself is not in Debian.
make_conan() {
    say "running the Conan recipe"
    packaging/conan/stand_in.py "$work/conan"
    consumer "$work/conan/package" "$work/conan/consumer"
    "$work/conan/consumer/consumer"
}

# make_archive <preset> <what runs the program...>
make_archive() {
    local preset=$1 archive root
    shift
    say "making the archive of $preset"
    rm -rf "${work:?}/$preset"
    cmake --preset "$preset" -B "$work/$preset/build" -DVEXMATH_BUILD_TESTS=OFF \
        -DVEXMATH_BUILD_EXAMPLES=OFF -DVEXMATH_BUILD_APPS=OFF >/dev/null
    cmake --build "$work/$preset/build" >/dev/null
    (cd "$work/$preset/build" && cpack -B "$work/$preset" >/dev/null)
    archive=$(find "$work/$preset" -maxdepth 1 -name "vexmath-$version-*" ! -name '*.sha256')
    echo "$(basename "$archive"): $(stat -c %s "$archive") bytes"
    mkdir "$work/$preset/root"
    (cd "$work/$preset/root" && cmake -E tar x "$archive")
    root=$(echo "$work/$preset/root"/*)
    consumer "$root" "$work/$preset/consumer" ${toolchain:+-DCMAKE_TOOLCHAIN_FILE="$toolchain"}
    (cd "$work/$preset/consumer" && PATH=$root/bin:$PATH WINEPATH=$root/bin WINEDEBUG=-all \
        "$@" ./consumer*)
}

make_windows() {
    toolchain=$PWD/cmake/toolchains/windows-64.cmake make_archive windows-64 "$windows_runner"
}

(($#)) || set -- debian vcpkg conan archive windows
rm -rf "$work"
for kind in "$@"; do
    if [[ $kind == archive ]]; then make_archive release env; else "make_$kind"; fi
done
say "packages: $work"
