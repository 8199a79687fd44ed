// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode city show: all that is known of a city.
#include <fmt/format.h>

#include "app/dates.h"
#include "app/day_view.h"
#include "cli/commands.h"
#include "cli/page_parts.h"
#include "common/captions.h"
#include "common/formatting.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

Json clockRuleJson(const ZoneRule& rule, std::optional<ClockChange> change) {
    Json next;
    if (change) next = object({{"date", isoDate(change->date)}, {"to_summer_time", change->toSummerTime}});
    return object({{"standard_offset_hours", rule.gmt},
                   {"has_summer_time", rule.dst},
                   {"shift_hours", rule.dst ? rule.hour : 0},
                   {"next_change", next}});
}

void printCity(Console& console, const ChosenPlace& place, std::optional<ClockChange> change) {
    Session& session = console.session();
    const CityRecord& city = place.city;
    TextTable table({TextTable::Align::left, TextTable::Align::left});
    const auto add = [&table](std::string_view label, std::string value) {
        table.add({std::string(label), std::move(value)});
    };
    if (city.id != 0) add("ID", std::to_string(city.id));
    add(_("Coordinates"), coordinatesText(city.latitude, city.longitude, session.decimalMark()));
    if (city.elevation) add(_("Elevation"), fmt::format("{} m", *city.elevation));
    if (city.population > 0) add(_("Population"), std::to_string(city.population));
    const std::string clock = city.zone + "  " + formatting::GetGMTValueStr(false, city.rule.gmt);
    add(session.caption(zoneCaption), clock);
    add("", change ? clockChangeText(session, *change) : _("no summer time"));
    printPlace(console, place);
    console.print();
    console.print(table, 2);
}

void runCityShow(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    const ChosenPlace place = choosePlace(session, arguments.text("CITY").value_or(""));
    const VAKDate present = today(session, siteOf(place.city));
    const auto change = nextClockChange(siteOf(place.city).clock(), civilDate(present));
    const std::vector<ZoneDisagreement> warnings = zoneProblems(session, place.city, present, present, present);
    if (console.wantsJson()) {
        return console.printJson(object({{"place", placeJson(place)},
                                         {"clock", clockRuleJson(place.city.rule, change)},
                                         {"zone_data", zoneDataJson(place.city)},
                                         {"warnings", warningsJson(warnings)}}));
    }
    printCity(console, place, change);
    if (!warnings.empty()) console.print();
    printWarnings(console, warnings);
}

}  // namespace

Command cityShowCommand() {
    return {"show",
            _("Show what is known of a city"),
            {{Parameter::Kind::words, "CITY", "", _("NAME, ID or LAT,LON"), true}},
            runCityShow};
}

}  // namespace quode::cli
