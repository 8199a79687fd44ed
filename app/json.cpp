// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/json.h"

#include <nlohmann/json.hpp>

namespace quode::app {
namespace {

using Document = nlohmann::ordered_json;

Document documentOf(const Json& json) {
    struct Converter {
        Document operator()(std::monostate) const { return nullptr; }
        Document operator()(bool value) const { return value; }
        Document operator()(std::int64_t value) const { return value; }
        Document operator()(double value) const { return value; }
        Document operator()(const std::string& value) const { return value; }
        Document operator()(const Json::Array& values) const {
            Document array = Document::array();
            for (const Json& value : values) array.push_back(documentOf(value));
            return array;
        }
        Document operator()(const Json::Object& members) const {
            Document object = Document::object();
            for (const auto& [name, value] : members) object[name] = documentOf(value);
            return object;
        }
    };
    return std::visit(Converter{}, json.value());
}

}  // namespace

std::string Json::text() const {
    constexpr int indentation = 2;
    return documentOf(*this).dump(indentation, ' ', false, Document::error_handler_t::replace) + "\n";
}

std::string Json::line() const {
    return documentOf(*this).dump(-1, ' ', false, Document::error_handler_t::replace) + "\n";
}

}  // namespace quode::app
