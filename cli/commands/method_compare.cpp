// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode method compare: a day or a month under several methods side by side.
#include <algorithm>
#include <map>

#include "app/dates.h"
#include "app/day_view.h"
#include "app/method_choice.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/page_parts.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

/// The keys in "diyanet,mwl"; without a list the default, the city's, and the usual one of the country and widely used
/// ones.
std::vector<std::string> keysOf(const std::optional<std::string>& list, const ChosenPlace& place) {
    std::vector<std::string> keys;
    const auto add = [&keys](const std::string& key) {
        if (std::ranges::find(keys, key) == keys.end()) keys.push_back(key);
    };
    if (!list) {
        add(place.city.choice.method.key);
        const std::string country = place.nearest ? place.nearest->city.countryCode : place.city.countryCode;
        if (const auto* usual = conventions::usualIn(country)) add(std::string(usual->key));
        for (const char* key : {"quode", "mwl", "isna", "egypt", "karachi", "umm-al-qura", "moonsighting"}) add(key);
        return keys;
    }
    std::string_view rest = *list;
    while (!rest.empty()) {
        const std::size_t comma = rest.find(',');
        add(std::string(conventionNamed(std::string(rest.substr(0, comma))).key));
        rest = comma == std::string_view::npos ? std::string_view{} : rest.substr(comma + 1);
    }
    return keys;
}

CityDay dayBy(const ChosenPlace& place, const std::string& key, const VAKDate& date) {
    Site site = siteOf(place.city);
    if (site.choice.method.key != key) {
        site.choice.method = {};
        site.choice.method.key = key;
    }
    site.choice.table.reset();
    return computeCityDay(site, date);
}

std::vector<VAKDate> datesOf(Session& session, const Arguments& arguments, const ChosenPlace& place) {
    if (const auto month = arguments.text("month")) return daysOf(parseMonth(*month));
    return {requestedDate(arguments).value_or(today(session, siteOf(place.city)))};
}

/// A table of the prayers from one to another.
std::vector<std::string> linesOf(Session& session, const std::map<std::string, CityDay>& days,
                                 const std::vector<std::string>& keys, int first, int last) {
    std::vector<TextTable::Align> columns(static_cast<std::size_t>(last - first + 2), TextTable::Align::right);
    columns.front() = TextTable::Align::left;
    TextTable table(columns);
    std::vector<std::string> head{isoDate(days.begin()->second.date)};
    for (int code = first; code <= last; ++code) head.push_back(session.prayerName(code));
    table.add(head);
    for (const std::string& key : keys) {
        std::vector<std::string> row{key};
        for (int code = first; code <= last; ++code) {
            row.push_back(clockText(session, timeOfPrayer(days.at(key), code)));
        }
        table.add(row);
    }
    return table.lines(unlimitedWidth);
}

void printDay(Console& console, const ChosenPlace& place, const std::vector<std::string>& keys, const VAKDate& date) {
    Session& session = console.session();
    std::map<std::string, CityDay> days;
    for (const std::string& key : keys) days.emplace(key, dayBy(place, key, date));
    // What does not stand side by side stands one below the other.
    for (int first = firstPrayer, last = lastMainPrayer; first <= lastMainPrayer; first = last + 1) {
        std::vector<std::string> lines;
        for (last = lastMainPrayer; last >= first; --last) {
            lines = linesOf(session, days, keys, first, last);
            const auto fits = [&console](const auto& line) { return displayWidth(line) <= console.rowWidth(); };
            if (std::ranges::all_of(lines, fits) || last == first) break;
        }
        console.print(console.style().dim(lines.front()));
        for (std::size_t i = 1; i < lines.size(); ++i) console.print(lines[i]);
    }
}

Json dayJson(const ChosenPlace& place, const std::vector<std::string>& keys, const VAKDate& date) {
    Json::Object methods;
    for (const std::string& key : keys) {
        const CityDay day = dayBy(place, key, date);
        Json::Object times;
        for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
            times.emplace_back(prayerKey(code), timeJson(timeOfPrayer(day, code)));
        }
        methods.emplace_back(key, Json(std::move(times)));
    }
    return object({{"date", isoDate(date)}, {"methods", Json(std::move(methods))}});
}

void runCompare(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    const ChosenPlace place = choosePlace(session, arguments.text("city"));
    const auto keys = keysOf(arguments.text("METHODS"), place);
    const auto dates = datesOf(session, arguments, place);
    if (console.wantsJson()) {
        Json::Array days;
        for (const VAKDate& date : dates) days.push_back(dayJson(place, keys, date));
        return console.printJson(object({{"place", placeJson(place)}, {"days", days}}));
    }
    printPlace(console, place);
    for (const VAKDate& date : dates) {
        console.print();
        printDay(console, place, keys, date);
    }
}

}  // namespace

Command methodCompareCommand() {
    return {"compare",
            _("Show a day or month by several methods"),
            {{Parameter::Kind::word, "METHODS", "", _("Keys, such as diyanet,mwl,isna")},
             cityParameter(),
             dateParameter(),
             {Parameter::Kind::option, "month", "YYYY-MM", _("A whole month")}},
            runCompare};
}

}  // namespace quode::cli
