// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/zone_check.h"

#include <fmt/format.h>

#include <cmath>

#include "common/civil_date.h"
#include "data/system_zone.h"
#include "texts/translation.h"

namespace quode {
namespace {

using std::chrono::days;
using std::chrono::year_month_day;

// One second; offsets are whole seconds.
constexpr double smallestDifference = 1.0 / 3600.0;

}  // namespace

std::string utcOffsetText(double hours) {
    const long seconds = std::lround(std::abs(hours) * 3600.0);
    std::string text = fmt::format("UTC{}{}", hours < 0 ? '-' : '+', seconds / 3600);
    if (seconds % 3600 != 0) text += fmt::format(":{:02}", seconds / 60 % 60);
    if (seconds % 60 != 0) text += fmt::format(":{:02}", seconds % 60);
    return text;
}

DayRange twoYearsFrom(year_month_day first) {
    const std::chrono::sys_days begin(first);
    return {begin, begin + days(730)};
}

std::optional<ZoneDisagreement> checkZone(const StoredZone& zone, DayRange range,
                                          const std::filesystem::path& zoneFolder) {
    ZoneDisagreement found;
    found.zone = zone.name;
    const std::optional<SystemZone> system = SystemZone::load(zoneFolder, zone.name);
    if (!system) {
        found.unknownToSystem = true;
        return found;
    }
    for (std::chrono::sys_days day = range.first; day <= range.last; day += days(1)) {
        const double stored = ZoneClock{zone.rule, zone.known}.offsetOn(year_month_day(day)) / 3600.0;
        const double theirs = system->offsetAtNoon(day) / 3600.0;
        if (std::abs(stored - theirs) < smallestDifference) continue;
        if (found.days == 0) {
            found.first = year_month_day(day);
            found.storedHours = stored;
            found.systemHours = theirs;
        }
        found.last = year_month_day(day);
        ++found.days;
    }
    if (found.days == 0) return std::nullopt;
    return found;
}

std::vector<ZoneDisagreement> checkZones(std::span<const StoredZone> zones, DayRange range,
                                         const std::filesystem::path& zoneFolder) {
    std::vector<ZoneDisagreement> disagreements;
    for (const StoredZone& zone : zones) {
        if (auto disagreement = checkZone(zone, range, zoneFolder)) disagreements.push_back(std::move(*disagreement));
    }
    return disagreements;
}

std::string describe(const ZoneDisagreement& disagreement) {
    if (disagreement.unknownToSystem) {
        return _("{}: this system has no zone data of that name to compare with", disagreement.zone);
    }
    const std::string when = disagreement.days == 1 ? _("on {}", isoDate(disagreement.first))
                                                    : _("on {} days ({} to {})", disagreement.days,
                                                        isoDate(disagreement.first), isoDate(disagreement.last));
    return _("{}: stored {}, this system says {} {}", disagreement.zone, utcOffsetText(disagreement.storedHours),
             utcOffsetText(disagreement.systemHours), when);
}

}  // namespace quode
