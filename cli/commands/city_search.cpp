// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode city search: finds cities by name.
#include <fmt/format.h>

#include "app/place.h"
#include "cli/commands.h"
#include "common/numbers.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

constexpr int defaultLimit = 10, mostHits = 1000;

int limitOf(const Arguments& arguments) {
    const auto request = arguments.text("limit");
    if (!request) return defaultLimit;
    const bool isNumber =
        !request->empty() && request->size() <= 4 && request->find_first_not_of("0123456789") == std::string::npos;
    const int limit = isNumber ? leadingNumber<int>(*request) : 0;
    if (limit >= 1 && limit <= mostHits) return limit;
    throw Failure(ExitCode::usage, _("--limit is a number from 1 to {}, not \"{}\".", mostHits, *request));
}

const char* matchName(CityMatch match) {
    switch (match) {
        case CityMatch::exact:
            return "exact";
        case CityMatch::prefix:
            return "prefix";
        case CityMatch::word:
            return "word";
        default:
            return "typo";
    }
}

Json hitsJson(const std::vector<CityHit>& hits) {
    Json::Array cities;
    for (const CityHit& hit : hits) {
        cities.push_back(object({{"city", cityJson(hit.city)},
                                 {"match", matchName(hit.match)},
                                 {"other_name", hit.otherName.empty() ? Json() : Json(hit.otherName)}}));
    }
    return object({{"cities", cities}});
}

void printHits(Console& console, const std::vector<CityHit>& hits) {
    using Align = TextTable::Align;
    TextTable table({Align::right, Align::left, Align::left, Align::right, Align::left});
    for (const CityHit& hit : hits) {
        const std::string name = hit.otherName.empty() ? hit.city.name : hit.city.name + " (" + hit.otherName + ")";
        table.add({std::to_string(hit.city.id), name, regionAndCountry(console.session(), hit.city),
                   hit.city.population > 0 ? std::to_string(hit.city.population) : "", hit.city.zone});
    }
    console.print(table, 0);
}

void runSearch(Console& console, const Arguments& arguments) {
    const std::string text(trimmed(arguments.text("TEXT").value_or("")));
    if (text.empty()) throw Failure(ExitCode::usage, _("The name of the city is empty."));
    const std::vector<CityHit> hits = console.session().cities().search(text, limitOf(arguments));
    if (hits.empty()) {
        throw Failure(ExitCode::notFound, _("No city is called \"{}\" or has a similar name.", text));
    }
    if (console.wantsJson()) {
        console.printJson(hitsJson(hits));
    } else {
        printHits(console, hits);
    }
}

}  // namespace

Command citySearchCommand() {
    return {"search",
            _("Find cities by name"),
            {{Parameter::Kind::words, "TEXT", "", _("A name; after a comma a country or region"), true},
             {Parameter::Kind::option, "limit", "N", _("The most cities to show (10)")}},
            runSearch};
}

}  // namespace quode::cli
