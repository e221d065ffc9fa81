// SPDX-License-Identifier: MIT
// How a function is exported from the vexmath library.

#ifndef VEXMATH_EXPORT_H
#define VEXMATH_EXPORT_H

/// Marks what the shared library exports: each out-of-line public function, and each polymorphic
/// class, whose virtual table and run-time type must be exported too. A function without the mark
/// is inline or private to the library.
#if defined(VEXMATH_STATIC)
#define VEXMATH_API
#elif defined(_WIN32)
#if defined(VEXMATH_BUILDING)
#define VEXMATH_API __declspec(dllexport)
#else
#define VEXMATH_API __declspec(dllimport)
#endif
#else
#define VEXMATH_API __attribute__((visibility("default")))
#endif

/// Marks a function without side effects, so that a loop which may call it keeps its values in
/// registers. It is not inlined: a rare call then stays behind the test that avoids it, where a
/// compiler would otherwise evaluate all tests together.
#if defined(__GNUC__)
#define VEXMATH_PURE __attribute__((pure, noinline))
#else
#define VEXMATH_PURE
#endif

/// Marks a polymorphic class template whose instances several modules share. Each module emits the
/// virtual table and run-time type of an instance, and the linker must merge them. Windows compares
/// run-time types by name and needs no mark.
#if defined(_WIN32)
#define VEXMATH_SHARED_TEMPLATE
#else
#define VEXMATH_SHARED_TEMPLATE __attribute__((visibility("default")))
#endif

#endif
