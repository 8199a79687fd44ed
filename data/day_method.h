// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// How the times of a day came about, and the step that brings a chosen method into a day of the engine.
#pragma once

#include <array>
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
    ownRule,        ///< Quode's own rule, for the convention does not define this time
    table,          ///< the imported table
};

struct TimeMark {
    TimeSource source = TimeSource::engine;
    int adjusted = 0;  ///< minutes that the user added

    friend bool operator==(const TimeMark&, const TimeMark&) = default;
};

/// How a day was computed.
struct DayMethod {
    conventions::Method method;
    std::array<TimeMark, 9> marks{};  ///< of the prayers 200 to 208
    conventions::UsedPoint point;     ///< of a convention: the point computed for
    double usedLatitude = 0.0;        ///< of a convention
    bool isFromTable = false;         ///< the imported table has this day
    bool hasTable = false;            ///< a table was imported, whether it has this day or not
    std::string tableName;
    IqamaRules iqama;  ///< of the table, else as the user chose for the city

    const TimeMark& mark(int code) const { return marks.at(static_cast<std::size_t>(code - 200)); }
};

/// Replaces the times that the engine has computed by those of the site's choice. With the default nothing changes.
void applyChoice(const Site& site, CityDay& day);

}  // namespace quode
