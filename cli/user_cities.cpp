// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "cli/user_cities.h"

#include <algorithm>

#include "app/place.h"
#include "cli/page_parts.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {

using namespace app;
using namespace terminal;

namespace {

using Align = TextTable::Align;

/// What a line tells of a city beside its name, where there is room.
enum class Width { withZone, withRegion, nameOnly };

std::vector<std::string> linesOf(Console& console, const std::vector<UserCity>& cities, Width width) {
    TextTable table({Align::right, Align::left, Align::left, Align::left, Align::right, Align::left});
    for (const UserCity& each : cities) {
        const std::string position = std::to_string(&each - cities.data() + 1);
        const std::string id = std::to_string(each.id);
        const std::string home(each.isHome ? _c("city", "home") : "");
        if (each.city) {
            table.add({position, each.city->name,
                       width == Width::nameOnly ? "" : regionAndCountry(console.session(), *each.city),
                       width == Width::withZone ? each.city->zone : "", id, home});
        } else {
            table.add({position, "?", std::string(_("no longer in the city database")), "", id, home});
        }
    }
    return table.lines(width == Width::nameOnly ? console.rowWidth() : unlimitedWidth);
}

void printCities(Console& console, const std::vector<UserCity>& cities) {
    if (cities.empty()) return console.print(_("You have no cities yet. To choose one: quode city home NAME."));
    std::vector<std::string> lines;
    for (const Width width : {Width::withZone, Width::withRegion, Width::nameOnly}) {
        lines = linesOf(console, cities, width);
        if (std::ranges::all_of(lines, [&](const auto& line) { return displayWidth(line) <= console.textWidth(); }))
            break;
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        console.print(cities[i].isHome ? console.style().strong(lines[i]) : lines[i]);
    }
    printHowHomeWasChosen(console);
}

Json citiesJson(const std::vector<UserCity>& cities) {
    Json::Array list;
    for (const UserCity& each : cities) {
        list.push_back(
            object({{"id", each.id}, {"is_home", each.isHome}, {"city", each.city ? cityJson(*each.city) : Json()}}));
    }
    return object({{"cities", list}});
}

}  // namespace

void showCities(Console& console, const std::vector<UserCity>& cities) {
    if (console.wantsJson()) {
        console.printJson(citiesJson(cities));
    } else {
        printCities(console, cities);
    }
}

}  // namespace quode::cli
