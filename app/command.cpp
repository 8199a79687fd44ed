// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/command.h"

namespace quode::app {

std::optional<std::string> Arguments::text(std::string_view name) const {
    const auto found = values_.find(name);
    if (found == values_.end()) return std::nullopt;
    return found->second;
}

Parameter cityParameter() {
    return {Parameter::Kind::option, "city", "NAME|ID|LAT,LON", "The place: a city, its id, or degrees"};
}

Parameter dateParameter() {
    return {Parameter::Kind::option, "date", "YYYY-MM-DD", "Another day than today"};
}

Parameter formatParameter() {
    Parameter parameter{Parameter::Kind::option, "format", "FORMAT", "table (the default), csv or json"};
    parameter.choices = {"table", "csv", "json"};
    return parameter;
}

Parameter languageParameter() {
    Parameter parameter{Parameter::Kind::option, "lang", "LANGUAGE", "The language: tr, en, fr or de"};
    parameter.choices = {"tr", "en", "fr", "de"};
    return parameter;
}

std::vector<Parameter> commonParameters() {
    return {{Parameter::Kind::toggle, "json", "", "Print JSON"},
            languageParameter(),
            {Parameter::Kind::toggle, "no-color", "", "Print without colours"}};
}

}  // namespace quode::app
