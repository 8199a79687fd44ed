// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode sky: Sun and Moon of a day in five values.
#include "app/dates.h"
#include "app/day_view.h"
#include "app/session.h"
#include "app/text_layout.h"
#include "cli/commands.h"
#include "common/formatting.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

void printSky(Session& session, const ChosenPlace& place, const CityDay& day) {
    const double altitude = day.sky.MoonAltitudeOnSunSet;
    TextTable table({TextTable::Align::left, TextTable::Align::right});
    const auto add = [&table](std::string_view label, std::string value) {
        table.add({std::string(label), std::move(value)});
    };
    add(_("Sunrise"), skyClockText(session, day.sky.SunRise));
    add(_("Sunset"), skyClockText(session, day.sky.SunSet));
    add(_("Moonrise"), skyClockText(session, day.sky.MoonRise));
    add(_("Moonset"), skyClockText(session, day.sky.MoonSet));
    add(_("Moon at sunset"), altitude == missingMoonTime ? std::string(formatting::noTime)
                                                         : formatting::getDegMinStrWithMinusPlus(altitude));
    printPlace(session, place);
    session.print(longDate(session, day.date));
    session.print();
    session.print(table, 2);
    printHowChosen(session, place);
}

void runSky(Session& session, const Arguments& arguments) {
    const std::optional<VAKDate> requested = requestedDate(arguments);
    const ChosenPlace place = choosePlace(session, arguments.text("city"));
    const Site site = siteOf(place.city);
    const CityDay day = computeCityDay(site, requested ? *requested : today(session, site));
    if (session.wantsJson()) {
        session.printJson(object({{"place", placeJson(place)}, {"date", isoDate(day.date)}, {"sky", skyJson(day)}}));
    } else {
        printSky(session, place, day);
    }
}

}  // namespace

Command skyCommand() {
    return {"sky", _("Rise and set of Sun and Moon"), {cityParameter(), dateParameter()}, runSky};
}

}  // namespace quode::cli
