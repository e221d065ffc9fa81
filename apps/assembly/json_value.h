// SPDX-License-Identifier: MIT
// A value of a JSON file that knows its place, so that every complaint can name it.

#ifndef ASSEMBLY_JSON_VALUE_H
#define ASSEMBLY_JSON_VALUE_H

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include <vexmath/vector.h>

namespace assembly {

/// A value and its place, written as in `parts[3].placement.axis`. Each reading member throws
/// Failure with file and place when the value is not of the kind asked for.
class JsonValue {
public:
    /// The top of a file. Syntax errors name line and column. A key that occurs twice in one object
    /// is refused, because the parser would drop the first of the two silently.
    static JsonValue readFrom(std::string const &file);

    /// Fails on a value that is no object, and on an object with any other key than these.
    void allowKeys(std::initializer_list<char const *> keys) const;
    JsonValue at(char const *key) const;                  ///< a missing key fails
    std::optional<JsonValue> find(char const *key) const; ///< nothing when the key is missing

    std::vector<JsonValue> list() const; ///< of an array with at least one entry
    std::string text() const;            ///< not empty, no control characters
    double number() const;
    mgVector_c vector() const; ///< an array of three numbers

    std::string const &place() const { return place_; }
    [[noreturn]] void fail(std::string const &what) const;

private:
    struct File {
        std::string name;
        nlohmann::json root;
    };

    JsonValue(std::shared_ptr<File const> file, nlohmann::json const &value, std::string place);

    std::shared_ptr<File const> file_; // owns what value_ points into
    nlohmann::json const *value_;
    std::string place_;
};

} // namespace assembly

#endif
