// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode sky: Sun and Moon of a day in five values.
#include "app/dates.h"
#include "app/day_view.h"
#include "app/session.h"
#include "app/text_layout.h"
#include "cli/commands.h"
#include "common/formatting.h"

namespace quode::cli {
namespace {

void printSky(Session& session, const ChosenPlace& place, const CityDay& day) {
    const Texts& texts = session.texts();
    const double altitude = day.sky.MoonAltitudeOnSunSet;
    TextTable table({TextTable::Align::left, TextTable::Align::right});
    const auto add = [&table](std::string_view label, std::string value) {
        table.add({std::string(label), std::move(value)});
    };
    add(texts.sunrise, skyClockText(session, day.sky.SunRise));
    add(texts.sunset, skyClockText(session, day.sky.SunSet));
    add(texts.moonrise, skyClockText(session, day.sky.MoonRise));
    add(texts.moonset, skyClockText(session, day.sky.MoonSet));
    add(texts.moonAtSunset, altitude == missingMoonTime ? std::string(formatting::noTime)
                                                        : formatting::getDegMinStrWithMinusPlus(altitude));
    printPlace(session, place);
    session.print(longDate(session, day.date));
    session.print();
    for (const std::string& line : table.lines()) session.print("  " + line);
    printHowChosen(session, place);
}

void runSky(Session& session, const Arguments& arguments) {
    const std::optional<VAKDate> wished = wishedDate(arguments);
    const ChosenPlace place = choosePlace(session, arguments.text("city"));
    const Site site = siteOf(place.city);
    const CityDay day = computeCityDay(site, wished ? *wished : today(session, site));
    if (session.wantsJson()) {
        session.printJson(object({{"place", placeJson(place)}, {"date", isoDate(day.date)}, {"sky", skyJson(day)}}));
    } else {
        printSky(session, place, day);
    }
}

}  // namespace

Command skyCommand() {
    return {"sky", "Rise and set of Sun and Moon", {cityParameter(), dateParameter()}, runSky};
}

}  // namespace quode::cli
