// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "support/vectors.h"
#include "support/fixtures.h"

#include <cmath>
#include <fstream>
#include <limits>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace quode::test {
namespace {

using Json = nlohmann::json;

void append(const Json& value, std::vector<double>& numbers, std::vector<std::string>& texts) {
    if (value.is_array()) {
        for (const Json& element : value) append(element, numbers, texts);
        return;
    }
    const double nan = std::numeric_limits<double>::quiet_NaN();
    numbers.push_back(value.is_boolean()  ? (value.get<bool>() ? 1.0 : 0.0)
                      : value.is_number() ? value.get<double>()
                                          : nan);
    texts.push_back(value.is_string() ? value.get<std::string>() : std::string());
}

Vector vectorFrom(const Json& json) {
    Vector vector;
    vector.op = json.at("op").get<std::string>();
    append(json.at("in"), vector.in, vector.inTexts);
    const Json& out = json.at("out");
    if (out.is_object()) {
        for (const auto& [name, value] : out.items()) {
            std::vector<std::string> texts;
            append(value, vector.members[name], texts);
        }
    } else {
        append(out, vector.out, vector.outTexts);
    }
    return vector;
}

}  // namespace

std::string Vector::describe() const {
    std::string text = op + "(";
    for (std::size_t i = 0; i < in.size(); ++i) {
        if (i > 0) text += ", ";
        text += std::isnan(in[i]) ? inTexts[i] : Json(in[i]).dump();
    }
    return text + ")";
}

std::vector<Vector> vectorsOf(std::string_view file, std::string_view op) {
    const std::string path = fixture("vectors/" + std::string(file) + ".json");
    std::ifstream stream(path);
    if (!stream) throw std::runtime_error("cannot read " + path);
    std::vector<Vector> found;
    for (const Json& json : Json::parse(stream)) {
        if (json.at("op") == op) found.push_back(vectorFrom(json));
    }
    if (found.empty()) throw std::runtime_error("no vectors of " + std::string(op) + " in " + path);
    return found;
}

}  // namespace quode::test
