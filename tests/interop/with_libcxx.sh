#!/bin/bash
# Runs the tests of in_cpp20.cpp in C++23 with the standard library of LLVM, which has std::format.
#   with_libcxx.sh <clang++> <source folder> <platform headers> <libvexmath.so> <work folder>
set -euo pipefail

compiler=$1 source=$2 platform=$3 library=$4 work=$5
gtest=/usr/src/googletest/googletest

mkdir -p "$work"
"$compiler" -std=c++23 -stdlib=libc++ -Wall -Wextra -Werror -I "$source/include" -I "$platform" \
    -I "$source/tests" -isystem "$gtest/include" -isystem "$gtest" "$gtest/src/gtest-all.cc" \
    "$gtest/src/gtest_main.cc" "$source/tests/interop/in_cpp20.cpp" "$library" \
    -Wl,-rpath,"$(dirname "$library")" -o "$work/test"
"$work/test" --gtest_brief=1 | grep -v WARNING
"$work/test" --gtest_list_tests | grep -q StandardFormat # which is left out without std::format
