// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The facts of a zone's clock beyond its yearly rule.
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

/// The days as text for the city database: first and last day, counted from 1970, and the offset in seconds, with a
/// semicolon after each run: "20758 20890 -14400;". A fixed format: it is stored.
std::string zoneDaysText(const std::vector<ZoneDays>& days);

/// Reads such a text, up to its first error.
std::vector<ZoneDays> zoneDaysOf(std::string_view text);

/// The days for which facts beyond the yearly rule are stored. Before them only the rule applies, in every edition.
inline constexpr std::chrono::sys_days firstKnownDay = std::chrono::year(2020) / 1 / 1;
inline constexpr std::chrono::sys_days lastKnownDay = std::chrono::year(2050) / 12 / 31;

/// The facts of one zone.
struct ZoneKnowledge {
    std::vector<ZoneDays> days;       ///< of the shipped edition, in chronological order
    std::optional<SystemZone> newer;  ///< the zone in the zone data of this machine, where these are newer
    std::string edition;              ///< the edition in use, for example "2026f"
    std::string systemEdition;        ///< the edition of this machine's zone data; empty when unknown

    /// True when the zone data of this machine are in use.
    bool isOfSystem() const { return newer.has_value(); }

    /// True when the zone data of this machine are certainly older than those in use.
    bool systemIsOlder() const;

    /// Seconds east of Greenwich at noon of a day; nothing where the yearly rule decides.
    std::optional<int> offsetOn(std::chrono::sys_days day) const;

    friend bool operator==(const ZoneKnowledge&, const ZoneKnowledge&) = default;
};

/// The yearly rule of a zone with all facts beyond it.
struct ZoneClock {
    ZoneRule rule;
    std::shared_ptr<const ZoneKnowledge> known;  ///< null: the rule alone

    /// Implicit, because a rule alone is a clock too.
    ZoneClock(const ZoneRule& yearly, std::shared_ptr<const ZoneKnowledge> more = {})
        : rule(yearly), known(std::move(more)) {}

    /// The rule for a day: the yearly one where it applies, else a rule for that day alone.
    ZoneRule ruleOn(std::chrono::year_month_day date) const;

    /// Seconds east of Greenwich on a day, by the rule that the engine uses on that day.
    int offsetOn(std::chrono::year_month_day date) const;

    /// Seconds east of Greenwich at a moment. Where only days are known the clocks change at two o'clock standard time.
    int offsetAt(std::chrono::sys_seconds moment) const;

    friend bool operator==(const ZoneClock& a, const ZoneClock& b);
};

/// The first change of a clock after a day; nothing when there is no change within two years.
std::optional<ClockChange> nextClockChange(const ZoneClock& clock, std::chrono::year_month_day after);

}  // namespace quode
