// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "terminal/command.h"

#include "texts/translation.h"

namespace quode::terminal {

std::optional<std::string> Arguments::text(std::string_view name) const {
    const auto found = values_.find(name);
    if (found == values_.end()) return std::nullopt;
    return found->second;
}

Parameter cityParameter() {
    return {Parameter::Kind::option, "city", "NAME|ID|LAT,LON", _("The place: a city, its id, or degrees")};
}

Parameter dateParameter() {
    return {Parameter::Kind::option, "date", "YYYY-MM-DD", _("Another day than today")};
}

Parameter languageParameter() {
    return {Parameter::Kind::option, "lang", "LANGUAGE", _("The language, such as en or tr")};
}

std::vector<Parameter> commonParameters() {
    return {{Parameter::Kind::toggle, "json", "", _("Print JSON")},
            languageParameter(),
            {Parameter::Kind::toggle, "no-color", "", _("Print without colours")}};
}

}  // namespace quode::terminal
