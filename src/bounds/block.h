// SPDX-License-Identifier: MIT
// An array whose size is known when it is made.

#ifndef VEXMATH_SRC_BOUNDS_BLOCK_H
#define VEXMATH_SRC_BOUNDS_BLOCK_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

namespace vexmath::detail {

/// Owns elements that are not initialised, or nothing when memory is exhausted.
template <class T>
class Block {
public:
    Block() = default;
    /// REQUIRES count >= 0
    explicit Block(std::ptrdiff_t count) {
        // For more elements this new may throw instead of giving null.
        constexpr auto kMost = PTRDIFF_MAX / static_cast<std::ptrdiff_t>(sizeof(T));
        if (count <= kMost) elements_.reset(new (std::nothrow) T[static_cast<std::size_t>(count)]);
    }

    explicit operator bool() const { return elements_ != nullptr; }
    T *get() { return elements_.get(); }
    T const *get() const { return elements_.get(); }
    T &operator[](std::ptrdiff_t i) { return get()[i]; }
    T const &operator[](std::ptrdiff_t i) const { return get()[i]; }

private:
    std::unique_ptr<T[]> elements_;
};

} // namespace vexmath::detail

#endif
