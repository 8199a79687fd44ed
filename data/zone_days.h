// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What is known of a zone's clock beyond its yearly rule.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/system_zone.h"
#include "data/zone_rules.h"

namespace quode {

/// Days, first and last included, on which the clock differs from the yearly rule of its zone.
struct ZoneDays {
    std::chrono::sys_days first;
    std::chrono::sys_days last;
    int offset = 0;  ///< seconds east of Greenwich at noon of each of these days

    friend bool operator==(const ZoneDays&, const ZoneDays&) = default;
};

/// The days as the city database holds them: first and last day, counted from 1970, and the offset; each run ended by a
/// semicolon: "20758 20890 -14400;".
std::string zoneDaysText(const std::vector<ZoneDays>& days);
std::vector<ZoneDays> zoneDaysOf(std::string_view text);

/// The days of which more than the yearly rule is known. Before them the rule is all there is, in every edition.
inline constexpr std::chrono::sys_days firstKnownDay = std::chrono::year(2020) / 1 / 1;
inline constexpr std::chrono::sys_days lastKnownDay = std::chrono::year(2050) / 12 / 31;

/// What is known of one zone.
struct ZoneKnowledge {
    std::vector<ZoneDays> days;       ///< of the shipped edition, in the order of time
    std::optional<SystemZone> newer;  ///< the zone in the zone data of this machine, where these are newer
    std::string edition;              ///< the edition that the clock rests on, for example "2026f"
    std::string systemEdition;        ///< that of the zone data of this machine; empty when it is not known

    bool isOfSystem() const { return newer.has_value(); }

    /// Whether the zone data of this machine are known to be older than those that the clock rests on.
    bool systemIsOlder() const;

    /// Seconds east of Greenwich at noon of a day, where more is known than the yearly rule says.
    std::optional<int> offsetOn(std::chrono::sys_days day) const;

    friend bool operator==(const ZoneKnowledge&, const ZoneKnowledge&) = default;
};

/// The yearly rule of a zone with all that is known beyond it.
struct ZoneClock {
    ZoneRule rule;
    std::shared_ptr<const ZoneKnowledge> known;  ///< null: no more than the rule

    /// A rule alone is a clock too.
    ZoneClock(const ZoneRule& yearly, std::shared_ptr<const ZoneKnowledge> more = {})
        : rule(yearly), known(std::move(more)) {}

    /// The rule that is true on a day: the yearly one where it is, else one that is good for that day alone.
    ZoneRule ruleOn(std::chrono::year_month_day date) const;

    /// Seconds east of Greenwich on a day, as the rule of that day gives it to the engine.
    int offsetOn(std::chrono::year_month_day date) const;

    /// Seconds east of Greenwich at a moment. Where only days are known the clocks change at two o'clock standard time.
    int offsetAt(std::chrono::sys_seconds moment) const;

    friend bool operator==(const ZoneClock& a, const ZoneClock& b);
};

/// The first change of a clock after a day; nothing when it does not change within two years.
std::optional<ClockChange> nextClockChange(const ZoneClock& clock, std::chrono::year_month_day after);

}  // namespace quode
