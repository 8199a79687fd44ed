// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace quode::app {

/// A JSON value. Members of an object keep their order.
class Json {
  public:
    using Member = std::pair<std::string, Json>;
    using Object = std::vector<Member>;
    using Array = std::vector<Json>;
    using Value = std::variant<std::monostate, bool, std::int64_t, double, std::string, Array, Object>;

    Json() = default;  ///< null
    Json(std::nullptr_t) {}
    Json(bool value) : value_(value) {}
    Json(int value) : value_(std::int64_t{value}) {}
    Json(long value) : value_(std::int64_t{value}) {}
    Json(double value) : value_(value) {}
    Json(const char* value) : value_(std::string(value)) {}
    Json(std::string_view value) : value_(std::string(value)) {}
    Json(std::string value) : value_(std::move(value)) {}
    Json(Array values) : value_(std::move(values)) {}
    Json(Object members) : value_(std::move(members)) {}

    /// The value, or null where there is none.
    template <typename T>
    Json(const std::optional<T>& value) {
        if (value) *this = Json(*value);
    }

    const Value& value() const { return value_; }

    /// The text in several lines, with a line break at its end.
    std::string text() const;

    /// The same in one line, with a line break at its end.
    std::string line() const;

  private:
    Value value_;
};

/// An object of these members.
inline Json object(Json::Object members) {
    return Json(std::move(members));
}

}  // namespace quode::app
