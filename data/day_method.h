// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// How the times of a day were computed, and the step that applies the chosen method to a day of the engine.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "conventions/times.h"
#include "data/SiteChoice.h"

namespace quode {

struct Site;
struct CityDay;

/// Where a time comes from.
enum class TimeSource {
    engine,         ///< the default method; the flags of the record mark its fallbacks
    convention,     ///< the rule of the chosen convention
    highLatitude,   ///< the convention's rule for high latitudes
    otherLatitude,  ///< the convention, computed for a lower latitude
    ownRule,        ///< Quode's own rule, because the convention does not define this time
    table,          ///< the imported table
};

/// The origin of one time.
struct TimeMark {
    TimeSource source = TimeSource::engine;
    int adjusted = 0;  ///< minutes that the user added
    conventions::Caution caution = conventions::Caution::none;

    friend bool operator==(const TimeMark&, const TimeMark&) = default;
};

/// How a day was computed.
struct DayMethod {
    conventions::Method method;
    std::array<TimeMark, 9> marks{};   ///< of the prayers 200 to 208
    conventions::UsedPoint point;      ///< with a convention: the point computed for
    double usedLatitude = 0.0;         ///< with a convention: degrees
    std::optional<double> nightBegin;  ///< hours of the clock, where the night does not begin with Maghrib
    bool isFromTable = false;          ///< the imported table contains this day
    bool hasTable = false;             ///< a table is imported, whether it contains this day or not
    std::string tableName;
    IqamaRules iqama;  ///< of the table, else the user's choice for the city

    /// The origin of a prayer's time.
    /// @param code  200 to 208
    /// @throw std::out_of_range  for another code
    const TimeMark& mark(int code) const { return marks.at(static_cast<std::size_t>(code - firstPrayer)); }
};

/// When the night begins whose parts are shown: with Maghrib, or earlier where the method counts it from sunset. Hours
/// as those of the day's times; the day must have a Maghrib.
double nightBegin(const CityDay& day);

/// Replaces the engine's times with those of the site's choice. With the default nothing changes.
void applyChoice(const Site& site, CityDay& day);

}  // namespace quode
