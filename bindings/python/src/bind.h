// SPDX-License-Identifier: MIT
// How a declaration of the library is bound: its two names, its docstring, its outputs.

#ifndef VEXMATH_PYTHON_BIND_H
#define VEXMATH_PYTHON_BIND_H

#include <vexmath/vexmath.h>

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace bind {

namespace py = pybind11;
using namespace py::literals;

/// The comment of a declaration in the library's headers, such as "mgVector_c::len". Throws when
/// there is none.
std::string doc(std::string const &name);

/// An output that a function may leave unwritten: it holds a NaN that no operation makes.
template <class T>
class Output {
public:
    Output() {
        if constexpr (sizeof(T) >= sizeof kUntouched)
            std::memcpy(static_cast<void *>(&value), &kUntouched, sizeof kUntouched);
    }
    std::optional<T> get() const {
        if constexpr (sizeof(T) >= sizeof kUntouched)
            if (std::memcmp(&value, &kUntouched, sizeof kUntouched) == 0) return std::nullopt;
        return value;
    }
    T value{};

private:
    static constexpr std::uint64_t kUntouched = 0x7FF8DEADBEEF0123u;
};

/// The first of an array that a function filled as far as it says.
template <class T, std::size_t most>
std::vector<T> firstOf(std::array<T, most> const &all, int count) {
    return {all.begin(), all.begin() + count};
}

/// A transform with the same fields. A copy in C++ changes some.
std::unique_ptr<mgXform_c> exactCopy(mgXform_c const &x);

/// Binds a free function under both names. A further overload adds no text.
template <class F, class... Extra>
void function(py::module_ &m, char const *key, char const *python, F &&f, Extra const &...extra) {
    std::string const text = py::hasattr(m, python) ? "" : doc(key);
    m.def(python, std::forward<F>(f), text.c_str(), extra...);
    py::setattr(m, key, m.attr(python));
}

/// A class under both names, and its members likewise.
template <class T, class... Base>
class Class : public py::class_<T, Base...> {
public:
    Class(py::module_ &m, char const *python, char const *library)
        : py::class_<T, Base...>(m, python, doc(library).c_str()), library_(library) {
        py::setattr(m, library, *this);
    }

    template <class F, class... Extra>
    void method(char const *name, char const *python, F &&f, Extra const &...extra) {
        this->def(python, std::forward<F>(f), textFor(name, python).c_str(), extra...);
        addLibraryName(name, python);
    }
    template <class F, class... Extra>
    void fixed(char const *name, char const *python, F &&f, Extra const &...extra) {
        this->def_static(python, std::forward<F>(f), textFor(name, python).c_str(), extra...);
        addLibraryName(name, python);
    }
    /// A property; where the library's name is another one, also a method of that name.
    template <class Get, class Set = std::nullptr_t>
    void property(std::string const &name, char const *python, Get get, Set set = nullptr) {
        std::string const text = doc(library_ + "::" + name);
        this->def_property(python, get, set, text.c_str());
        if (name != python) this->def(name.c_str(), get, text.c_str());
    }

private:
    bool has(char const *name) const { return this->attr("__dict__").contains(name); }
    /// A further overload adds no text.
    std::string textFor(std::string const &name, char const *python) const {
        return has(python) ? "" : doc(library_ + "::" + name);
    }
    void addLibraryName(char const *name, char const *python) {
        if (!has(name)) py::setattr(*this, name, this->attr("__dict__")[python]);
    }

    std::string library_;
};

// An enumeration of the library is an IntEnum of Python.

template <class E>
struct EnumName; // holds a text

#include "enumerations.inc"

template <class E>
inline PyObject *enumClass = nullptr; // held until the process ends

template <class E>
void enumeration(py::module_ &m, char const *library, std::initializer_list<char const *> names) {
    py::list members;
    int value = 0;
    for (char const *name : names) members.append(py::make_tuple(name, value++));
    py::object made = py::module_::import("enum").attr("IntEnum")(EnumName<E>::text, members,
                                                                  "module"_a = "vexmath");
    py::setattr(made, "__doc__", py::str(doc(library)));
    py::setattr(m, EnumName<E>::text, made);
    py::setattr(m, library, made);
    enumClass<E> = made.release().ptr();
}

} // namespace bind

template <class E>
struct pybind11::detail::type_caster<E, std::enable_if_t<std::is_enum_v<E>>> {
    static constexpr auto name = const_name(bind::EnumName<E>::text);
    static handle cast(E value, return_value_policy, handle) {
        return PyObject_CallFunction(bind::enumClass<E>, "i", static_cast<int>(value));
    }
};

#endif
