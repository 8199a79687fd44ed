// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode iqama: when the congregation begins, for timetables.
#include "data/iqama.h"

#include <fmt/format.h>

#include "app/city_changes.h"
#include "app/dates.h"
#include "app/day_view.h"
#include "app/prayer_names.h"
#include "app/time_notes.h"
#include "cli/commands.h"
#include "cli/page_parts.h"
#include "common/numbers.h"
#include "data/city_day.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

constexpr int sunrise = codeOf(Prayer::sunrise);

ChosenPlace cityOf(Session& session, const Arguments& arguments) {
    ChosenPlace place = choosePlace(session, arguments.text("city"));
    if (place.city.id != 0) return place;
    throw Failure(ExitCode::usage, _("Iqama times are kept for a city. Give the place a name first: quode city add "
                                     "LAT,LON --name NAME"));
}

/// Reads "+20", minutes after the time, or "13:30".
Iqama iqamaOf(const std::string& text) {
    const std::size_t colon = text.find(':');
    if (text.starts_with('+')) {
        const auto minutes = numberOf<int>(text.substr(1));
        if (minutes && *minutes >= 0 && *minutes <= longestIqama) return {false, *minutes};
    } else if (colon != std::string::npos) {
        const auto hour = numberOf<int>(text.substr(0, colon)), minute = numberOf<int>(text.substr(colon + 1));
        const bool isClock = hour && minute && *hour >= 0 && *hour < minutesPerDay / minutesPerHour && *minute >= 0 &&
                             *minute < minutesPerHour;
        if (isClock) return {true, *hour * minutesPerHour + *minute};
    }
    throw Failure(ExitCode::usage, _("\"{0}\" is not an iqama time. Write +MINUTES after the prayer time, up "
                                     "to +{1}, or a clock time such as 13:30.",
                                     text, longestIqama));
}

std::string iqamaRuleText(Session& session, const Iqama& iqama) {
    if (iqama.isFixed) return clockText(session, std::chrono::minutes(iqama.minutes));
    return _n("{} minute after", "{} minutes after", iqama.minutes);
}

Json iqamaRuleJson(const Iqama& iqama) {
    return object({{"minutes_after", iqama.isFixed ? Json() : Json(iqama.minutes)},
                   {"clock", iqama.isFixed ? Json(clock24(std::chrono::minutes(iqama.minutes))) : Json()}});
}

void show(Console& console, const ChosenPlace& place) {
    Session& session = console.session();
    const Site site = siteOf(place.city);
    const CityDay day = computeCityDay(site, today(session, site));
    Json::Array prayers;
    TextTable table({TextTable::Align::left, TextTable::Align::right, TextTable::Align::right, TextTable::Align::left,
                     TextTable::Align::left});
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        if (code == sunrise) continue;
        const auto& rule = day.method.iqama.at(static_cast<std::size_t>(code - firstPrayer));
        const auto minute = iqamaMinute(day, code);
        const auto hours = minute ? std::optional(double(*minute) / minutesPerHour) : std::nullopt;
        prayers.push_back(object({{"key", prayerKey(code)},
                                  {"name", session.prayerName(code)},
                                  {"rule", rule ? iqamaRuleJson(*rule) : Json()},
                                  {"today", timeJson(hours)}}));
        table.add({session.prayerName(code), clockText(session, timeOfPrayer(day, code)),
                   minute ? clockText(session, hours) : "-", rule ? iqamaRuleText(session, *rule) : "",
                   adjustmentMark(day, code)});
    }
    if (console.wantsJson()) {
        return console.printJson(object({{"place", placeJson(place)}, {"iqama", Json(std::move(prayers))}}));
    }
    printPlace(console, place);
    console.print();
    console.print(table, 0);
}

void change(Console& console, const Arguments& arguments, const std::optional<Iqama>& iqama) {
    Session& session = console.session();
    ChosenPlace place = cityOf(session, arguments);
    const std::vector<int> codes = prayersNamed(session, arguments.text("PRAYERS").value_or("all"));
    place.city.choice.iqama = chooseIqama(session, place.city, codes, iqama);
    show(console, place);
}

void runIqama(Console& console, const Arguments& arguments) {
    show(console, choosePlace(console.session(), arguments.text("city")));
}

void runIqamaSet(Console& console, const Arguments& arguments) {
    change(console, arguments, iqamaOf(arguments.text("at").value_or("")));
}

void runIqamaRemove(Console& console, const Arguments& arguments) {
    change(console, arguments, std::nullopt);
}

}  // namespace

Command iqamaCommand() {
    return {"iqama", _("When the congregation begins, for timetables"), {cityParameter()}, runIqama};
}

Command iqamaSetCommand() {
    return {"set",
            _("Set it, minutes after the time or at a clock time"),
            {{Parameter::Kind::option, "at", "WHEN", _("+MINUTES after the prayer time, or a clock time"), true},
             {Parameter::Kind::words, "PRAYERS", "", _("The prayers, such as fajr isha; all when none is named")},
             cityParameter()},
            runIqamaSet};
}

Command iqamaRemoveCommand() {
    return {"remove",
            _("Remove it"),
            {{Parameter::Kind::words, "PRAYERS", "", _("The prayers, such as fajr isha; all when none is named")},
             cityParameter()},
            runIqamaRemove};
}

}  // namespace quode::cli
