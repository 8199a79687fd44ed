// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "conventions_page.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "conventions/agreement.h"
#include "published_rows.h"
#include "support/fixtures.h"

namespace quode::conventions {
namespace {

constexpr const char* head = R"(# Calculation conventions

What the timetables of authorities add to the geometry of the Sun, and how well Quode reproduces them. This page and the
lines that `quode method show` prints are written by `build/release/bin/conventions_page` from the table of conventions and
the published rows in `tests/fixtures/conventions`; a test keeps them up to date.

The method `quode` is the default. Another one is chosen with `quode method set KEY`, for one call with `--method KEY`.
Nothing is ever switched by itself: `quode method suggest` only names the one that is usual in a country.

## How to read the table

- Angles are depressions of the Sun's centre; `0°50′` is sunrise and sunset. Minutes are added to the geometric time.
- `up` and `down` say how seconds become a minute; without a word, to the nearest.
- `0h UT`: the place of the Sun is taken once, at 0 h universal time of the date.
- `night from sunset`: midnight and the thirds of the night are counted from sunset; elsewhere from Maghrib. The night ends with Fajr.
- `dip`: the dip of the horizon, 0.0321° times the square root of the height in metres, is added to the depressions.
- Agreement counts the published rows at hand: exact, within one minute, within two, and the worst difference. A table's point
  is often not the centre of the city; a hundredth of a degree moves one minute in 25.
- The Sun: VSOP87 with nutation, aberration and Delta T, within a second of arc of an ephemeris fitted to JPL's; times are
  found to a tenth of a second.

)";

constexpr const char* highLatitudes = R"(
## High latitudes

Where the Sun does not sink as deep as an angle asks for, or only late in the night, a rule gives a limit: Fajr is the
later of the angle's time and the limit, Isha the earlier. Such times are marked. Sunset and sunrise in these rules are the
plain geometric ones, without minutes. Choose another rule with `--high-latitude`.

| rule | meaning |
| --- | --- |
)";

constexpr const char* polar = R"(
`nearest-latitude` and `nearest-latitude-clock` are the two readings of one rule; both apply beyond 48.5 degrees. Where a time
borrowed from another day or latitude would fall into the local daylight, the middle of the night is taken.
The Moonsighting minutes give way to one seventh of the night from 55 degrees on.

Where the Sun does not both rise and set from the day before to the day after, the whole day is computed for the nearest
latitude on the same meridian where it does, and marked.

## What convention rows cannot give

- Ishraq and Isfirar are defined by no convention: they follow Quode's own rule and are marked.
- Mountain zones of Malaysia, Bosnian towns other than Sarajevo, London's Fajr and Isha and Sweden north of 61 degrees
  follow tables: import them with `quode method import`.
- Isha of Umm al-Qura in Ramadan follows the Umm al-Qura calendar of 1300 to 1600 AH.
)";

std::string minutes(double value) {
    if (value == 0.0) return "";
    return value == std::round(value) ? fmt::format(" {:+.0f}", value) : fmt::format(" {:+.2f}", value);
}

std::string cell(const Convention& convention, const PrayerRule& rule) {
    std::string text;
    switch (rule.basis) {
        case Basis::depression:
            text = fmt::format("{}°{}", rule.angle, minutes(rule.minutes));
            break;
        case Basis::transit:
            text = "noon" + minutes(rule.minutes);
            break;
        case Basis::shadow:
            text = fmt::format("shadow {}{}", convention.asrFactor, minutes(rule.minutes));
            break;
        case Basis::afterMaghrib:
            text = fmt::format("Maghrib +{}", rule.minutes);
            if (rule.ramadanMinutes > 0.0) text += fmt::format(", Ramadan +{}", rule.ramadanMinutes);
            break;
        default:
            text = "0°50′" + minutes(rule.minutes);
    }
    if (rule.rounding == Rounding::up) text += " up";
    if (rule.rounding == Rounding::down) text += " down";
    if (rule.moment == SunMoment::startOfDay) text += " 0h UT";
    return text;
}

std::string rulesTable() {
    std::string table =
        "## Rules\n\n| key | authority | Fajr | sunrise | Dhuhr | Asr | Maghrib | Isha | high latitudes |\n"
        "| --- | --- | --- | --- | --- | --- | --- | --- | --- |\n";
    for (const Convention& convention : allConventions()) {
        table += fmt::format("| `{}` | {} |", convention.key, convention.authority);
        for (const PrayerRule& rule : convention.rules) {
            const bool isEngine = convention.computation == Computation::engine;
            table += isEngine ? " see [accuracy](accuracy.md) |" : fmt::format(" {} |", cell(convention, rule));
        }
        std::string rule(keyOf(convention.highLatitude));
        if (convention.north.fromLatitude <= 90.0) {
            rule += fmt::format("; from {}° N Isha {}°, {}", convention.north.fromLatitude, convention.north.ishaAngle,
                                keyOf(convention.north.rule));
        }
        if (convention.height == HeightRule::dip) rule += "; dip";
        if (convention.night == NightBegin::sunset) rule += "; night from sunset";
        table += fmt::format(" {} |\n", rule);
    }
    return table;
}

std::vector<PublishedRow> allRows() {
    return readPublishedRows(test::fixture("conventions/published_rows.csv"));
}

constexpr std::array<const char*, mainPrayerCount> names = {"Fajr", "Sunrise", "Dhuhr", "Asr", "Maghrib", "Isha"};
constexpr const char* notChecked = "not checked against published rows";

int percent(int part, int whole) {
    return whole == 0 ? 0 : static_cast<int>(std::lround(100.0 * part / whole));
}

PublishedAgreement publishedAgreement(const Convention& convention, const std::vector<PublishedRow>& own) {
    PublishedAgreement result{.key = convention.key, .rows = static_cast<int>(own.size())};
    std::set<std::string> places;
    for (const PublishedRow& row : own) places.insert(row.place);
    result.places = static_cast<int>(places.size());
    const ConventionAgreement agreement = agreementOf(convention, own);
    for (std::size_t i = 0; i < mainPrayerCount; ++i) {
        const Agreement& prayer = agreement.prayers[i];
        result.exact[i] = percent(prayer.exact, prayer.rows);
        result.withinOne[i] = percent(prayer.withinOne, prayer.rows);
        result.withinTwo[i] = percent(prayer.withinTwo, prayer.rows);
        result.worst = std::max(result.worst, prayer.worst);
    }
    return result;
}

std::string agreementText(const Convention& convention, const std::vector<PublishedRow>& rows) {
    const auto own = rowsOf(convention, rows);
    if (own.empty()) return notChecked;
    const PublishedAgreement agreement = publishedAgreement(convention, own);
    std::string text =
        fmt::format("{} published rows of {} {}, exact/within 1/within 2 minutes in percent:", agreement.rows,
                    agreement.places, agreement.places == 1 ? "place" : "places");
    for (std::size_t i = 0; i < mainPrayerCount; ++i) {
        text += fmt::format(" {} {}/{}/{}{}", names[i], agreement.exact[i], agreement.withinOne[i],
                            agreement.withinTwo[i], i + 1 == mainPrayerCount ? "" : ",");
    }
    return text + fmt::format("; worst {} min", agreement.worst);
}

std::string listed(const std::array<int, mainPrayerCount>& percents) {
    return fmt::format("{{{}}}", fmt::join(percents, ", "));
}

}  // namespace

std::string conventionsPage() {
    const auto rows = allRows();
    std::string page = head + rulesTable() + "\n## Source and agreement\n\n";
    for (const Convention& convention : allConventions()) {
        page += fmt::format("### {}: {}\n\nSource: {}.\n", convention.key, convention.name, convention.source);
        page += fmt::format("Agreement: {}.\n", agreementText(convention, rows));
        if (!convention.remark.empty()) page += fmt::format("{}\n", convention.remark);
        page += "\n";
    }
    page.pop_back();
    page += highLatitudes;
    for (const auto& name : highLatitudeNames()) page += fmt::format("| `{}` | {} |\n", name.key, name.meaning);
    return page + polar;
}

std::string agreementSource() {
    const auto rows = allRows();
    std::string source = R"(// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Written by build/release/bin/conventions_page from the published rows of the tests.
#include "conventions/agreement.h"

#include <algorithm>
#include <iterator>

namespace quode::conventions {
namespace {

// clang-format off
constexpr PublishedAgreement agreements[] = {
)";
    for (const Convention& convention : allConventions()) {
        const auto own = rowsOf(convention, rows);
        if (own.empty()) continue;
        const PublishedAgreement found = publishedAgreement(convention, own);
        source += fmt::format("    {{\"{}\", {}, {}, {}, {}, {}, {}}},\n", found.key, found.rows, found.places,
                              listed(found.exact), listed(found.withinOne), listed(found.withinTwo), found.worst);
    }
    return source + R"(};
// clang-format on

}  // namespace

const PublishedAgreement* publishedAgreement(std::string_view key) {
    const auto* found = std::ranges::find(agreements, key, &PublishedAgreement::key);
    return found == std::end(agreements) ? nullptr : found;
}

}  // namespace quode::conventions
)";
}

}  // namespace quode::conventions
