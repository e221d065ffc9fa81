// SPDX-License-Identifier: MIT
// Lets clang read the library's own code as MSVC would, as far as that goes without the headers of
// MSVC: with its preprocessor symbols and its dialect, but after the standard library of GCC.

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <cwchar>
#include <initializer_list>
#include <iostream>
#include <iterator>
#include <limits>
#include <memory>
#include <mutex>
#include <new>
#include <numeric>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <immintrin.h>

#undef __GNUC__
#undef __x86_64__
#define _MSC_VER 1930
#define _M_X64 100
