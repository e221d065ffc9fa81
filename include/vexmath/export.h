// SPDX-License-Identifier: MIT
// How a function is exported from the vexmath library.

#ifndef VEXMATH_EXPORT_H
#define VEXMATH_EXPORT_H

/// Marks what the shared library exports. It stands on each out-of-line public function, and on a
/// class only when the class is polymorphic, so that its virtual table and run-time type leave the
/// library too. A function without it is inline, or private to the library.
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

/// Marks a function that reads and returns, and does nothing else. A loop that may come to its call
/// still keeps in registers what it knows. Not inlined: a call that is rarely made stays behind the
/// test that avoids it, where a compiler would rather run all tests at once.
#if defined(__GNUC__)
#define VEXMATH_PURE __attribute__((pure, noinline))
#else
#define VEXMATH_PURE
#endif

/// Marks a polymorphic class template whose instances several modules share: the virtual table and
/// run-time type that each module emits for an instance must become one. Windows compares run-time
/// types by name and needs no mark.
#if defined(_WIN32)
#define VEXMATH_SHARED_TEMPLATE
#else
#define VEXMATH_SHARED_TEMPLATE __attribute__((visibility("default")))
#endif

#endif
