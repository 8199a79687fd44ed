// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode moon: the Moon of a day, and the phases of a year.
#include <fmt/format.h>

#include <array>
#include <cmath>

#include "app/dates.h"
#include "app/day_view.h"
#include "astro/AstroGlobalFuncs.h"
#include "astro/MoonPhases.h"
#include "astro/MoonTransit.h"
#include "astro/julian_day.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/moon_crescent.h"
#include "cli/moon_picture.h"
#include "cli/page_parts.h"
#include "common/calendar.h"
#include "common/formatting.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

constexpr double hoursPerDay = 24.0;
constexpr int pictureHeight = 9;
constexpr int besideThePicture = 2 + 2 * pictureHeight + 4;  // columns, with the gaps
constexpr std::array<const char*, 8> phaseKeys{"new_moon",  "waxing_crescent", "first_quarter", "waxing_gibbous",
                                               "full_moon", "waning_gibbous",  "last_quarter",  "waning_crescent"};

/// The date and time of day of a Julian day on a place's clock, to the minute.
VAKDate localClock(const Site& site, double julianDay) {
    constexpr double halfMinute = 0.5 / minutesPerDay, nudgeOfConversion = 1e-5;
    const auto instant = instantOfJulianDay(julianDay);
    const VAKDate clock = wallClock(site.clock(), instant);
    const auto shown = std::chrono::sys_days(civilDate(clock)) + std::chrono::hours(clock.Hours) +
                       std::chrono::minutes(clock.Minutes) + std::chrono::seconds(clock.Seconds);
    const double offset = std::chrono::duration<double>(shown - instant).count() / 86400.0;
    return calendar::JulianToGregorian(julianDay + offset + halfMinute - nudgeOfConversion);
}

// --- the Moon of a day

struct MoonPage {
    ChosenPlace place;
    Site site;
    CityDay day;
    VAKDate clock;  ///< the local moment for which the Moon is described
    MoonInfo info;
    MoonAge age;
    std::optional<double> transit;  ///< local hours
    int phase = 0;                  ///< 0..7, see phaseKeys
};

/// The phase of a day: one of the four that fall on it, else the one between them.
int phaseOf(double dayBegin, const MoonInfo& info) {
    const std::vector<MoonPhase> phases = moonPhasesBetween(dayBegin, dayBegin + 1.0);
    if (!phases.empty()) return 2 * phases.front().phase;
    constexpr double half = 50.0;
    const bool isCrescent = info.IlluminatedFraction < half;
    if (info.BrightInc) return isCrescent ? 1 : 3;
    return isCrescent ? 7 : 5;
}

MoonPage moonPageOf(Session& session, const Arguments& arguments) {
    const std::optional<VAKDate> requested = requestedDate(arguments);
    MoonPage page;
    page.place = choosePlace(session, arguments.text("city"));
    page.site = siteOf(page.place.city);
    const VAKDate present = wallClock(page.site.clock(), session.now());
    const VAKDate shown = requested.value_or(present);
    const bool isToday = sameDay(shown, present);
    // Another day than today is described at its noon.
    page.clock = isToday ? present : VAKDateMake(shown.Days, shown.Months, shown.Years, 12, 0, 0);
    page.day = computeCityDay(page.site, page.clock);

    const double zone = page.day.GMTValue / hoursPerDay;
    const double julianDay =
        isToday
            ? std::chrono::duration<double>(session.now().time_since_epoch()).count() / 86400.0 + julianDayOfUnixEpoch
            : calendar::GregorianDateToJulian(page.clock) - zone;
    VAKDate universal;
    AstroGlobalFuncs::JulianToCalendar(julianDay, universal, true);
    FastAstro engine;
    page.info = engine.MoonInformation(universal, page.site.latitude, page.site.longitude);
    page.age = moonAge(julianDay);
    const double transit = moonTransit(page.day.date, page.site.longitude, page.day.GMTValue);
    if (transit >= 0.0) page.transit = transit;
    page.phase = phaseOf(calendar::GregorianDateToJulian(page.day.date) - zone, page.info);
    return page;
}

/// From New Moon to the waning crescent, in the order of the phases.
constexpr std::array<const char*, 8> phaseNames{N_("New Moon"),       N_("Waxing crescent"), N_("First quarter"),
                                                N_("Waxing gibbous"), N_("Full Moon"),       N_("Waning gibbous"),
                                                N_("Last quarter"),   N_("Waning crescent")};

/// Seen from the north the waxing Moon is lit on the right, seen from the south on the left.
bool isLitOnTheRight(const MoonPage& page) {
    return page.info.BrightInc == (page.site.latitude >= 0.0);
}

std::string_view litText(const MoonPage& page) {
    if (page.info.IlluminatedFraction < 1.0) return _("not lit");
    if (page.info.IlluminatedFraction > 99.0) return _("fully lit");
    return isLitOnTheRight(page) ? _("lit on the right") : _("lit on the left");
}

TextTable moonFacts(Session& session, const MoonPage& page) {
    TextTable table({TextTable::Align::left, TextTable::Align::left});
    const auto add = [&table](std::string_view label, std::string value) {
        table.add({std::string(label), std::move(value)});
    };
    const SkyTimes sky = skyTimes(page.day);
    add(_("Moonrise"), clockText(session, sky.moonrise));
    add(_c("Moon", "Transit"), clockText(session, page.transit));
    add(_("Moonset"), clockText(session, sky.moonset));
    add(_c("Moon", "Illuminated"), _("{} %, {}", session.decimal(page.info.IlluminatedFraction, 0),
                                     page.info.BrightInc ? _c("Moon", "waxing") : _c("Moon", "waning")));
    add(_("Moon at sunset"), altitudeText(sky.moonAltitudeAtSunset));
    add(_("Elongation"), session.decimal(page.info.Elongation, 1) + "°");
    add(_("Distance"), fmt::format("{:.0f} km", page.info.Distance));
    add(_c("Moon", "Age"), _("{} days", session.decimal(page.age.sinceNewMoon, 1)));
    add(_("New Moon"), _("in {} days", session.decimal(page.age.toNewMoon, 1)));
    return table;
}

void printMoon(Console& console, const MoonPage& page, bool draws) {
    Session& session = console.session();
    const std::string phase = _(phaseNames.at(static_cast<std::size_t>(page.phase)));
    printPlace(console, page.place);
    console.print(longDate(session, page.day.date) + ", " +
                  session.services().timeLeadingZero(page.clock.Hours, page.clock.Minutes));
    console.print();
    const TextTable table = moonFacts(session, page);
    std::vector<std::string> facts = table.lines(unlimitedWidth);
    const int widest = displayWidth(*std::ranges::max_element(facts, {}, displayWidth));
    if (!draws || besideThePicture + widest > console.width()) {
        console.print(fmt::format("{}, {}", phase, litText(page)));
        return console.print(table, 2);
    }
    facts.insert(facts.begin(), {console.style().strong(phase), ""});
    const auto picture = moonPicture(page.info.IlluminatedFraction / 100.0, isLitOnTheRight(page), pictureHeight);
    for (std::size_t i = 0; i < std::max(facts.size(), picture.size()); ++i) {
        // The picture is one line shorter than the facts above and below.
        const std::size_t first = (facts.size() - picture.size()) / 2;
        const bool isPicture = i >= first && i - first < picture.size();
        console.print("  " + (isPicture ? picture[i - first] : std::string(std::size_t{2} * pictureHeight, ' ')) +
                      "    " + (i < facts.size() ? facts[i] : ""));
    }
}

Json moonJson(const MoonPage& page) {
    const auto phase = static_cast<std::size_t>(page.phase);
    const SkyTimes sky = skyTimes(page.day);
    return object({{"place", placeJson(page.place)},
                   {"date", isoDate(page.day.date)},
                   {"described_at", formatting::timeLeadingZero(page.clock.Hours, page.clock.Minutes, {})},
                   {"phase", object({{"key", phaseKeys.at(phase)}, {"name", _(phaseNames.at(phase))}})},
                   {"rise", skyTimeJson(sky.moonrise)},
                   {"transit", skyTimeJson(page.transit)},
                   {"set", skyTimeJson(sky.moonset)},
                   {"illuminated_percent", page.info.IlluminatedFraction},
                   {"waxing", page.info.BrightInc},
                   {"altitude_at_sunset", sky.moonAltitudeAtSunset},
                   {"altitude", page.info.AppAlt},
                   {"azimuth", page.info.Azimuth},
                   {"elongation", page.info.Elongation},
                   {"distance_km", page.info.Distance},
                   {"days_since_new_moon", page.age.sinceNewMoon},
                   {"days_to_new_moon", page.age.toNewMoon}});
}

// --- the phases of a year

struct PhaseLine {
    MoonPhase phase;
    VAKDate clock;
};

/// The phases that fall into a year on a place's clock.
std::vector<PhaseLine> phasesOfYear(const Site& site, int year) {
    const double begin = calendar::CalculateJulianDay(year, 1, 1, 0, 0, 0);
    const double end = calendar::CalculateJulianDay(year, 12, 31, 0, 0, 0) + 1.0;
    std::vector<PhaseLine> lines;
    for (const MoonPhase& phase : moonPhasesBetween(begin - 1.0, end + 1.0)) {
        const VAKDate clock = localClock(site, phase.julianDay);
        const double day = calendar::CalculateJulianDay(clock.Years, clock.Months, clock.Days, 0, 0, 0);
        if (day >= begin && day < end) lines.push_back({phase, clock});
    }
    return lines;
}

void printPhases(Console& console, const ChosenPlace& place, int year, const std::vector<PhaseLine>& lines) {
    Session& session = console.session();
    using Align = TextTable::Align;
    TextTable table({Align::right, Align::left, Align::right, Align::left});
    for (const PhaseLine& line : lines) {
        table.add({std::to_string(line.clock.Days), session.monthName(line.clock.Months),
                   session.services().timeLeadingZero(line.clock.Hours, line.clock.Minutes),
                   _(phaseNames.at(2 * static_cast<std::size_t>(line.phase.phase)))});
    }
    printPlace(console, place);
    console.print(std::to_string(year));
    console.print();
    console.print(table, 2);
    printHowChosen(console, place);
}

Json phasesJson(const ChosenPlace& place, int year, const std::vector<PhaseLine>& lines) {
    Json::Array phases;
    for (const PhaseLine& line : lines) {
        const std::size_t phase = 2 * static_cast<std::size_t>(line.phase.phase);
        phases.push_back(object({{"key", phaseKeys.at(phase)},
                                 {"name", _(phaseNames.at(phase))},
                                 {"date", isoDate(line.clock)},
                                 {"time", formatting::timeLeadingZero(line.clock.Hours, line.clock.Minutes, {})},
                                 {"instant", isoMoment(instantOfJulianDay(line.phase.julianDay))}}));
    }
    return object({{"place", placeJson(place)}, {"year", year}, {"phases", phases}});
}

void runPhases(Console& console, const Arguments& arguments, const std::string& yearText) {
    if (arguments.has("date")) throw Failure(ExitCode::usage, _("--phases is about a year: leave --date out."));
    const int year = parseYear(yearText);
    const ChosenPlace place = choosePlace(console.session(), arguments.text("city"));
    const std::vector<PhaseLine> lines = phasesOfYear(siteOf(place.city), year);
    if (console.wantsJson()) {
        console.printJson(phasesJson(place, year, lines));
    } else {
        printPhases(console, place, year, lines);
    }
}

void runMoon(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    if (const auto year = arguments.text("phases")) return runPhases(console, arguments, *year);
    if (arguments.has("crescent")) {
        const ChosenPlace place = choosePlace(session, arguments.text("city"));
        return showCrescent(console, place, requestedDate(arguments).value_or(today(session, siteOf(place.city))));
    }
    const MoonPage page = moonPageOf(session, arguments);
    if (console.wantsJson()) return console.printJson(moonJson(page));
    printMoon(console, page, console.drawsOnTerminal() && !arguments.has("plain"));
    printHowChosen(console, page.place);
}

}  // namespace

Command moonCommand() {
    return {"moon",
            _("The Moon of a day, or the phases of a year"),
            {cityParameter(),
             dateParameter(),
             {Parameter::Kind::option, "phases", "YYYY", _("The phases of a year in the city's time")},
             {Parameter::Kind::toggle, "crescent", "", _("The outlook for seeing the new crescent")},
             {Parameter::Kind::toggle, "plain", "", _("Words only, no picture")}},
            runMoon};
}

}  // namespace quode::cli
