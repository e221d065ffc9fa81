// SPDX-License-Identifier: MIT
// A value of a JSON file that knows its place, so that every complaint can name it.

#include "json_value.h"

#include "files.h"
#include "report.h"

#include <algorithm>
#include <set>
#include <utility>

#include <fmt/core.h>

namespace assembly {

using nlohmann::json;

namespace {

/// The parser's own words without its error number: "line 3, column 7: syntax error ...".
std::string withoutErrorNumber(std::string message) {
    for (std::string const ending : {"] ", "parse error at "}) {
        std::size_t const found = message.find(ending);
        if (found != std::string::npos) message.erase(0, found + ending.size());
    }
    return message;
}

/// Looks at the keys of a text, and builds nothing. A callback of the parser would see them, too,
/// but then the parser takes quadratic time for a long list of objects.
class KeyCheck : public json::json_sax_t {
public:
    /// Throws Failure on a key that occurs twice in one object. Stops at an error of syntax.
    static void refuseKeyTwice(std::string const &text, std::string const &file) {
        KeyCheck check(file);
        json::sax_parse(text, &check);
    }

    bool start_object(std::size_t) override {
        keysOfOpenObjects_.emplace_back();
        return true;
    }
    bool key(std::string &key) override {
        bool const isNew = keysOfOpenObjects_.back().insert(key).second;
        if (isNew) return true;
        throw Failure(file_, fmt::format("key \"{}\" occurs twice in one object", key));
    }
    bool end_object() override {
        keysOfOpenObjects_.pop_back();
        return true;
    }
    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(json::number_integer_t) override { return true; }
    bool number_unsigned(json::number_unsigned_t) override { return true; }
    bool number_float(double, std::string const &) override { return true; }
    bool string(std::string &) override { return true; }
    bool binary(json::binary_t &) override { return true; }
    bool start_array(std::size_t) override { return true; }
    bool end_array() override { return true; }
    bool parse_error(std::size_t, std::string const &, json::exception const &) override {
        return false;
    }

private:
    explicit KeyCheck(std::string const &file) : file_(file) {}

    std::string const &file_;
    std::vector<std::set<std::string>> keysOfOpenObjects_;
};

json parse(std::string const &file) {
    std::string const text = readFile(file);
    KeyCheck::refuseKeyTwice(text, file);
    try {
        return json::parse(text);
    } catch (json::exception const &error) {
        throw Failure(file, withoutErrorNumber(error.what()));
    }
}

} // namespace

JsonValue JsonValue::readFrom(std::string const &file) {
    auto const shared = std::make_shared<File const>(File{file, parse(file)});
    return {shared, shared->root, ""};
}

JsonValue::JsonValue(std::shared_ptr<File const> file, json const &value, std::string place)
    : file_(std::move(file)), value_(&value), place_(std::move(place)) {}

void JsonValue::fail(std::string const &what) const {
    throw Failure(file_->name, place_.empty() ? what : place_ + ": " + what);
}

void JsonValue::allowKeys(std::initializer_list<char const *> keys) const {
    if (!value_->is_object()) fail("must be an object");
    for (auto const &item : value_->items()) {
        bool const isAllowed = std::find(keys.begin(), keys.end(), item.key()) != keys.end();
        if (!isAllowed) fail(fmt::format("unknown key \"{}\"", item.key()));
    }
}

JsonValue JsonValue::at(char const *key) const {
    std::optional<JsonValue> const value = find(key);
    if (!value) fail(fmt::format("key \"{}\" is missing", key));
    return *value;
}

std::optional<JsonValue> JsonValue::find(char const *key) const {
    auto const found = value_->find(key);
    if (found == value_->end()) return std::nullopt;
    return JsonValue(file_, *found, place_.empty() ? key : place_ + "." + key);
}

std::vector<JsonValue> JsonValue::list() const {
    if (!value_->is_array() || value_->empty()) fail("must be a list with at least one entry");
    std::vector<JsonValue> entries;
    entries.reserve(value_->size());
    for (json const &entry : *value_) {
        entries.push_back({file_, entry, fmt::format("{}[{}]", place_, entries.size())});
    }
    return entries;
}

std::string JsonValue::text() const {
    if (!value_->is_string()) fail("must be a text");
    auto text = value_->get<std::string>();
    if (text.empty()) fail("must not be empty");
    if (printable(text) != text) fail("must be one line of plain text");
    return text;
}

double JsonValue::number() const {
    if (!value_->is_number()) fail("must be a number");
    return value_->get<double>();
}

mgVector_c JsonValue::vector() const {
    if (!value_->is_array() || value_->size() != 3) fail("must be a list of three numbers");
    std::vector<JsonValue> const entries = list();
    return {entries[0].number(), entries[1].number(), entries[2].number()};
}

} // namespace assembly
