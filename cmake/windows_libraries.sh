#!/bin/bash
# Builds the libraries of the applications for 64-bit Windows from the sources of Debian, which does
# not package them for MinGW-w64.
#   windows_libraries.sh <folder>   static libraries, headers and package files of CMake, in <folder>
# It changes nothing outside that folder: apt gets its own list of sources and folders.
set -euo pipefail

mkdir -p "$1"/{include,share/cmake,sources}
prefix=$(cd "$1" && pwd)
toolchain=$(cd "$(dirname "$0")" && pwd)/toolchains/windows-64.cmake

fetch() {
    apt-get -q -o Dir::Etc::SourceList="$PWD/sources.list" -o Dir::Etc::SourceParts=/dev/null \
        -o Dir::State::Lists="$PWD/lists" -o Dir::Cache="$PWD/cache" -o APT::Sandbox::User=root "$@"
}

# The sources of the Debian that is installed here.
fetch_sources() {
    # shellcheck disable=SC2016  # the names are apt's
    apt-get indextargets --format 'deb-src $(SITE) $(CODENAME) main' 'Component: main' \
        'Origin: Debian' | sort -u >sources.list
    mkdir -p lists/partial cache
    fetch update
    fetch source --download-only "$@"
    local name
    for name in "$@"; do
        rm -rf "$name"
        dpkg-source --no-check -x "$name"_*.dsc "$name"
    done
}

# install_library <source folder> [options of cmake...]
install_library() {
    cmake -S "$1" -B "$1-build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_SHARED_LIBS=OFF \
        "${@:2}"
    cmake --build "$1-build" --target install
}

# CLI11 and nlohmann-json are headers alone. Sources of assimp that no program here links need the
# others, and zlib.
copy_headers() {
    cp -RL /usr/include/{CLI,nlohmann,utf8,utf8.h,minizip/{ioapi,unzip}.h} "$prefix/include"
    cp -R /usr/share/cmake/{CLI11,nlohmann_json} "$prefix/share/cmake"
}

cd "$prefix/sources"
copy_headers
fetch_sources assimp fmtlib pugixml
install_library fmtlib -DFMT_TEST=OFF -DFMT_DOC=OFF
install_library pugixml
# Debian's assimp requires draco even where nothing uses it. Its own zlib and minizip are removed.
sed -i '/^find_package(draco/d' assimp/code/CMakeLists.txt assimp/cmake-modules/*.in
install_library assimp -DASSIMP_BUILD_ALL_IMPORTERS_BY_DEFAULT=OFF \
    -DASSIMP_BUILD_{OBJ,PLY,STL}_IMPORTER=ON -DASSIMP_NO_EXPORT=ON -DASSIMP_BUILD_TESTS=OFF \
    -DASSIMP_BUILD_ASSIMP_TOOLS=OFF -DASSIMP_BUILD_MINIZIP=ON -DUNZIP_FOUND=ON \
    -DASSIMP_WARNINGS_AS_ERRORS=OFF -DCMAKE_CXX_FLAGS="-w -isystem $prefix/include" \
    -DZLIB_LIBRARY=/usr/x86_64-w64-mingw32/lib/libz.a
rm -rf "$prefix/sources"
touch "$prefix/complete"
