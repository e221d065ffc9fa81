# The compiler flags of the house, each with its reason.

# Floating point as written: no product and sum fused into one rounding, and on 32-bit x86 no
# intermediate result in a wider register. Library and tests are built so. A caller that compiles
# with flags such as -march=native, and needs inline bodies to round as the library does, links this
# target as well. The library's own target does not add these flags to callers.
add_library(vexmath_strict_fp INTERFACE)
add_library(vexmath::strict_fp ALIAS vexmath_strict_fp)
set_target_properties(vexmath_strict_fp PROPERTIES EXPORT_NAME strict_fp)
if(MSVC)
  target_compile_options(vexmath_strict_fp INTERFACE /fp:precise)
else()
  target_compile_options(vexmath_strict_fp INTERFACE -ffp-contract=off)
  if(NOT EMSCRIPTEN # which calls its processor x86
      AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i[3-6]86|x86)$")
    # g++ 12 fuses a difference and a sum of neighbouring products in spite of the flag above.
    target_compile_options(vexmath_strict_fp INTERFACE -mno-fma)
    if(CMAKE_SIZEOF_VOID_P EQUAL 4)
      target_compile_options(vexmath_strict_fp INTERFACE -msse2 -mfpmath=sse)
    endif()
  endif()
endif()

# Warnings of our own code, private to it.
add_library(vexmath_warnings INTERFACE)
if(MSVC)
  target_compile_options(vexmath_warnings INTERFACE /W4 $<$<BOOL:${VEXMATH_WARNINGS_AS_ERRORS}>:/WX>)
else()
  target_compile_options(vexmath_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${VEXMATH_WARNINGS_AS_ERRORS}>:-Werror>)
endif()

# Division by zero is left alone: the library divides by zero where IEEE 754 gives the result it
# wants. float-cast-overflow is not part of "undefined" and is added by name.
if(VEXMATH_SANITIZE)
  set(_sanitize "-fsanitize=${VEXMATH_SANITIZE}" -fno-sanitize-recover=all -fno-omit-frame-pointer)
  if(VEXMATH_SANITIZE MATCHES "undefined")
    list(APPEND _sanitize -fsanitize=float-cast-overflow -fno-sanitize=float-divide-by-zero)
  endif()
  add_compile_options(${_sanitize})
  add_link_options(${_sanitize})
endif()

# vexmath_own_code(<target>): what every target of this project is built with.
function(vexmath_own_code target)
  target_compile_features(${target} PRIVATE cxx_std_17)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:vexmath_warnings> $<BUILD_INTERFACE:vexmath_strict_fp>)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  # Callers on 32-bit Windows align the stack to 4 bytes only, and SSE needs 16.
  if(WIN32 AND NOT MSVC AND CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_compile_options(${target} PRIVATE -mstackrealign)
  endif()
endfunction()

# vexmath_link_time_optimise(<target>): one optimisation over all files of a release build.
function(vexmath_link_time_optimise target)
  if(NOT VEXMATH_LTO OR VEXMATH_SANITIZE)
    return()
  endif()
  include(CheckIPOSupported)
  check_ipo_supported(RESULT supported OUTPUT reason LANGUAGES CXX)
  if(NOT supported)
    message(STATUS "vexmath: no link-time optimisation with this toolchain: ${reason}")
    return()
  endif()
  set_target_properties(${target} PROPERTIES
    INTERPROCEDURAL_OPTIMIZATION_RELEASE ON
    INTERPROCEDURAL_OPTIMIZATION_RELWITHDEBINFO ON)
endfunction()
