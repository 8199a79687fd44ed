// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode moon --crescent: the outlook for seeing the new crescent.
#include "cli/moon_crescent.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <vector>

#include "app/dates.h"
#include "app/day_view.h"
#include "astro/MoonPhases.h"
#include "cli/page_parts.h"
#include "common/calendar.h"
#include "common/civil_date.h"
#include "common/numbers.h"
#include "conventions/CrescentOutlook.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

using conventions::CrescentEvening;

constexpr double daysAhead = 62.0;  // two new moons
constexpr int eveningsShown = 3;    // after each conjunction

struct Outlook {
    double conjunction = 0.0;  ///< Julian day
    struct Evening {
        VAKDate date;
        double offset = 0.0;
        std::optional<CrescentEvening> crescent;
    };
    std::vector<Evening> evenings;
};

VAKDate dayOf(double julianDay) {
    const VAKDate date = calendar::JulianToGregorian(julianDay);
    return VAKDateMake(date.Days, date.Months, date.Years, 0, 0, 0);
}

double startOf(const VAKDate& date) {
    return std::floor(calendar::GregorianDateToJulian(date)) + 0.5;
}

Outlook outlookOf(const Site& site, double conjunction) {
    Outlook outlook;
    outlook.conjunction = conjunction;
    const VAKDate utc = dayOf(conjunction);
    const double first = std::floor(conjunction + site.clock().offsetOn(civilDate(utc)) / 86400.0 + 0.5) - 0.5;
    for (int i = 0; i < eveningsShown; ++i) {
        const VAKDate date = dayOf(first + i + 0.25);
        const double offset = site.clock().offsetOn(civilDate(date)) / 3600.0;
        outlook.evenings.push_back(
            {date, offset,
             conventions::crescentEvening(first + i, site.latitude, site.longitude, offset, conjunction)});
    }
    return outlook;
}

std::vector<Outlook> outlooksFrom(const Site& site, const VAKDate& date) {
    std::vector<Outlook> outlooks;
    const double begin = startOf(date) - eveningsShown;
    for (const MoonPhase& phase : moonPhasesBetween(begin, begin + daysAhead)) {
        if (phase.phase == 0) outlooks.push_back(outlookOf(site, phase.julianDay));
    }
    return outlooks;
}

std::string yallopText(char zone) {
    const std::array<const char*, 6> texts = {
        N_("easily visible"),        N_("visible in perfect air"),    N_("may need a telescope to find"),
        N_("only with a telescope"), N_("not even with a telescope"), N_("not visible")};
    return _(texts.at(static_cast<std::size_t>(zone - 'A')));
}

std::string odehText(char zone) {
    const std::array<const char*, 4> texts = {N_("visible to the naked eye"), N_("perhaps to the naked eye"),
                                              N_("only with optical aid"), N_("not visible")};
    return _(texts.at(static_cast<std::size_t>(zone - 'A')));
}

void printOutlook(Console& console, const Outlook& outlook) {
    console.print(_("New moon: {} UTC", isoMoment(instantOfJulianDay(outlook.conjunction)).substr(0, 16)));
    for (const Outlook::Evening& evening : outlook.evenings) {
        if (!evening.crescent) {
            console.print("  " + isoDate(evening.date) + "  " +
                          _("the Moon sets before the Sun, or the Sun does not set"));
            continue;
        }
        const CrescentEvening& crescent = *evening.crescent;
        const auto clock = [&](double hours) {
            return clockText(console.session(), std::fmod(hours + evening.offset + 24.0, 24.0));
        };
        console.print("  " + isoDate(evening.date) + "  " +
                      _("sunset {}, best {}, moonset {}; age {} h, {}° from the Sun, width {}′", clock(crescent.sunset),
                        clock(crescent.bestTime), clock(crescent.moonset), fixedText(crescent.ageHours, 1),
                        fixedText(crescent.arcOfLight, 1), fixedText(crescent.width, 2)));
        console.print("              " + _("Yallop {} ({}): {}", std::string(1, crescent.yallopZone),
                                           fixedText(crescent.yallop, 3), yallopText(crescent.yallopZone)));
        console.print("              " + _("Odeh {} ({}): {}", std::string(1, crescent.odehZone),
                                           fixedText(crescent.odeh, 2), odehText(crescent.odehZone)));
    }
    console.print();
}

Json eveningJson(const Outlook::Evening& evening) {
    if (!evening.crescent) return object({{"date", isoDate(evening.date)}, {"crescent", Json()}});
    const CrescentEvening& c = *evening.crescent;
    const auto time = [&](double hours) { return clock24(std::fmod(hours + evening.offset + 24.0, 24.0)); };
    return object({{"date", isoDate(evening.date)},
                   {"sunset", time(c.sunset)},
                   {"best_time", time(c.bestTime)},
                   {"moonset", time(c.moonset)},
                   {"age_hours", c.ageHours},
                   {"arc_of_light", c.arcOfLight},
                   {"arc_of_vision", c.arcOfVision},
                   {"width_arcminutes", c.width},
                   {"yallop", object({{"q", c.yallop}, {"zone", std::string(1, c.yallopZone)}})},
                   {"odeh", object({{"v", c.odeh}, {"zone", std::string(1, c.odehZone)}})}});
}

}  // namespace

void showCrescent(Console& console, const ChosenPlace& place, const VAKDate& date) {
    const std::vector<Outlook> outlooks = outlooksFrom(siteOf(place.city), date);
    if (console.wantsJson()) {
        Json::Array all;
        for (const Outlook& outlook : outlooks) {
            Json::Array evenings;
            for (const auto& evening : outlook.evenings) evenings.push_back(eveningJson(evening));
            all.push_back(
                object({{"new_moon", isoMoment(instantOfJulianDay(outlook.conjunction))}, {"evenings", evenings}}));
        }
        return console.printJson(object({{"place", placeJson(place)}, {"kind", "outlook"}, {"crescents", all}}));
    }
    printPlace(console, place);
    console.print();
    for (const Outlook& outlook : outlooks) printOutlook(console, outlook);
    console.print(
        console.style().dim(console.wrapped(_("An outlook by two published criteria, not a calendar: months begin as "
                                              "the authority of the place announces."))));
}

}  // namespace quode::cli
