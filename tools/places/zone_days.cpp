// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "tools/places/zone_days.h"

#include <fmt/format.h>

#include <cmath>
#include <stdexcept>

#include "data/system_zone.h"
#include "data/zone_edition.h"
#include "tools/places/source_data.h"

namespace quode::places {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

std::string dateText(sys_days day) {
    const year_month_day date(day);
    return fmt::format("{:04}-{:02}-{:02}", int(date.year()), unsigned(date.month()), unsigned(date.day()));
}

std::vector<ZoneDays> differences(const ZoneRule& rule, const SystemZone& zone) {
    std::vector<ZoneDays> found;
    for (sys_days day = firstKnownDay; day <= lastKnownDay; day += days(1)) {
        const int offset = zone.offsetAtNoon(day);
        if (offset == std::lround(offsetOn(rule, day) * 3600.0)) continue;
        const bool continues = !found.empty() && found.back().last + days(1) == day && found.back().offset == offset;
        if (continues) {
            found.back().last = day;
        } else {
            found.push_back({day, day, offset});
        }
    }
    return found;
}

}  // namespace

std::string zoneDaysTable(const std::filesystem::path& dataFolder, const std::filesystem::path& zoneFolder) {
    const std::string edition = zoneEditionOf(zoneFolder);
    const std::string wanted = readEditions(dataFolder).at("zones");
    if (edition != wanted) {
        throw std::runtime_error(fmt::format("the zone data in {} have the edition \"{}\", the place data {}",
                                             zoneFolder.string(), edition, wanted));
    }
    std::string table = "timezone\tfirst\tlast\toffset_seconds\n";
    for (const auto& [name, rule] : readZoneRules(dataFolder)) {
        const std::optional<SystemZone> zone = SystemZone::load(zoneFolder, name);
        if (!zone) throw std::runtime_error("there is no zone " + name + " in " + zoneFolder.string());
        for (const ZoneDays& run : differences(rule, *zone)) {
            table += fmt::format("{}\t{}\t{}\t{}\n", name, dateText(run.first), dateText(run.last), run.offset);
        }
    }
    return table;
}

}  // namespace quode::places
