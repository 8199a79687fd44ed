// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "tools/places/zone_changes.h"

#include <fmt/format.h>

#include <span>
#include <stdexcept>

#include "data/zone_clock.h"
#include "data/zone_edition.h"
#include "tools/places/source_data.h"

namespace quode::places {
namespace {

using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::sys_seconds;
using Change = SystemZone::Change;

// A day earlier, for noon of the first day where clocks are ahead of Greenwich.
constexpr sys_seconds begin = firstKnownDay - days(1), end = lastShippedDay + days(2);

std::string momentText(sys_seconds moment) {
    const sys_days day = std::chrono::floor<days>(moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(moment - day);
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", int(date.year()), unsigned(date.month()),
                       unsigned(date.day()), time.hours().count(), time.minutes().count(), time.seconds().count());
}

// The changes from `begin` to `end`, with the time at the beginning as the first.
std::vector<Change> changesOf(const SystemZone& zone) {
    std::vector<Change> changes{{begin, zone.timeAt(begin)}};
    for (const Change& change : zone.changes()) {
        if (change.moment > begin && change.moment < end) changes.push_back(change);
    }
    return changes;
}

// Whether a rule gives an offset all the time from one moment to another.
bool gives(const PosixZone& rule, int offset, sys_seconds from, sys_seconds to) {
    for (sys_seconds moment = from; moment < to; moment += days(1)) {
        if (rule.offsetAt(moment) != offset) return false;
    }
    return rule.offsetAt(to - seconds(1)) == offset;
}

// The changes up to the last one that the rule does not give; none when it gives them all. After the last change that
// a zone file lists, its own rule holds.
std::vector<Change> besideRule(const SystemZone& zone) {
    std::vector<Change> changes = changesOf(zone);
    std::size_t needed = 0;
    for (std::size_t i = 0; i + 1 < changes.size(); ++i) {
        const bool isGiven =
            gives(*zone.afterwards(), changes[i].time.offset, changes[i].moment, changes[i + 1].moment);
        if (!isGiven) needed = i + 2;
    }
    changes.resize(needed);
    return changes;
}

}  // namespace

std::string zoneChangesTable(const std::filesystem::path& dataFolder, const std::filesystem::path& zoneFolder) {
    const std::string edition = zoneEditionOf(zoneFolder);
    const std::string wanted = readEditions(dataFolder).at("zones");
    if (edition != wanted) {
        throw std::runtime_error(fmt::format("the zone data in {} have the edition \"{}\", the place data {}",
                                             zoneFolder.string(), edition, wanted));
    }
    std::string table = "timezone\tmoment\toffset_seconds\tsummer\n";
    for (const auto& [name, rule] : readZoneRules(dataFolder)) {
        const std::optional<SystemZone> zone = SystemZone::load(zoneFolder, name);
        if (!zone) throw std::runtime_error("there is no zone " + name + " in " + zoneFolder.string());
        if (zone->afterwards() != parsePosixZone(rule)) throw std::runtime_error("the rule of " + name + " is another");
        for (const Change& change : besideRule(*zone)) {
            table += fmt::format("{}\t{}\t{}\t{}\n", name, momentText(change.moment), change.time.offset,
                                 change.time.isSummer ? 1 : 0);
        }
    }
    return table;
}

}  // namespace quode::places
