// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode sky: Sun and Moon of a day in five values.
#include "app/dates.h"
#include "app/day_view.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/page_parts.h"
#include "common/formatting.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

void printSky(Console& console, const ChosenPlace& place, const CityDay& day) {
    Session& session = console.session();
    const SkyTimes sky = skyTimes(day);
    TextTable table({TextTable::Align::left, TextTable::Align::right});
    const auto add = [&table](std::string_view label, std::string value) {
        table.add({std::string(label), std::move(value)});
    };
    add(_("Sunrise"), clockText(session, sky.sunrise));
    add(_("Sunset"), clockText(session, sky.sunset));
    add(_("Moonrise"), clockText(session, sky.moonrise));
    add(_("Moonset"), clockText(session, sky.moonset));
    add(_("Moon at sunset"), altitudeText(sky.moonAltitudeAtSunset));
    printPlace(console, place);
    console.print(longDate(session, day.date));
    console.print();
    console.print(table, 2);
    printHowChosen(console, place);
}

void runSky(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    const std::optional<VAKDate> requested = requestedDate(arguments);
    const ChosenPlace place = choosePlace(session, arguments.text("city"));
    const Site site = siteOf(place.city);
    const CityDay day = computeCityDay(site, requested ? *requested : today(session, site));
    if (console.wantsJson()) {
        console.printJson(object({{"place", placeJson(place)}, {"date", isoDate(day.date)}, {"sky", skyJson(day)}}));
    } else {
        printSky(console, place, day);
    }
}

}  // namespace

Command skyCommand() {
    return {"sky", _("Rise and set of Sun and Moon"), {cityParameter(), dateParameter()}, runSky};
}

}  // namespace quode::cli
