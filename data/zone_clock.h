// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The clock of a zone: its yearly rule, and the true clock where that is known.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "data/system_zone.h"
#include "data/zone_rules.h"

namespace quode {

/// The first day of which more than the yearly rule is known. Before it the rule is all there is, in every edition.
inline constexpr std::chrono::sys_days firstKnownDay = std::chrono::year(2020) / 1 / 1;

/// The last day for which Quode ships the exceptions of its edition to the yearly rules.
inline constexpr std::chrono::sys_days lastShippedDay = std::chrono::year(2050) / 12 / 31;

/// What is known of one zone.
struct ZoneKnowledge {
    std::optional<SystemZone> zone;  ///< the true clock; of this machine where its zone data are newer, else as shipped
    bool isOfSystem = false;         ///< the clock is that of this machine
    std::string edition;             ///< the edition that the clock rests on, for example "2026f"
    std::string systemEdition;       ///< that of the zone data of this machine; empty when it is not known

    /// Whether the zone data of this machine are known to be older than those that the clock rests on.
    bool systemIsOlder() const;

    /// Seconds east of Greenwich at noon of a day, where the true clock is known.
    std::optional<int> offsetOn(std::chrono::sys_days day) const;

    friend bool operator==(const ZoneKnowledge&, const ZoneKnowledge&) = default;
};

/// The yearly rule of a zone with all that is known beyond it.
struct ZoneClock {
    ZoneRule rule;
    std::shared_ptr<const ZoneKnowledge> known;  ///< null: the rule alone

    /// A rule alone is a clock too.
    ZoneClock(const ZoneRule& yearly, std::shared_ptr<const ZoneKnowledge> more = {})
        : rule(yearly), known(std::move(more)) {}

    /// The rule that is true on a day: the yearly one where it is, else one that is good for that day alone.
    ZoneRule ruleOn(std::chrono::year_month_day date) const;

    /// Seconds east of Greenwich on a day, as the rule of that day gives it to the engine.
    int offsetOn(std::chrono::year_month_day date) const;

    /// Seconds east of Greenwich at a moment. Where only the rule is known the clocks change at two o'clock standard time.
    int offsetAt(std::chrono::sys_seconds moment) const;

    friend bool operator==(const ZoneClock& a, const ZoneClock& b);
};

/// The first change of a clock after the noon of a day; nothing when it does not change within two years.
std::optional<ClockChange> nextClockChange(const ZoneClock& clock, std::chrono::year_month_day after);

}  // namespace quode
