// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode doctor zones: the stored clock rules against the system's zone data.
#include <fmt/format.h>

#include "app/dates.h"
#include "cli/commands.h"
#include "data/zone_check.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

Json disagreementJson(const ZoneDisagreement& found) {
    if (found.unknownToSystem) return object({{"zone", found.zone}, {"unknown_to_system", true}});
    return object({{"zone", found.zone},
                   {"unknown_to_system", false},
                   {"first", isoDate(found.first)},
                   {"last", isoDate(found.last)},
                   {"days", found.days},
                   {"stored_hours", found.storedHours},
                   {"system_hours", found.systemHours}});
}

void runZones(Console& console, const Arguments&) {
    Session& session = console.session();
    const auto first = std::chrono::year_month_day(std::chrono::floor<std::chrono::days>(session.now()));
    const DayRange range = twoYearsFrom(first);
    const std::vector<StoredZone> zones = session.cities().zones();
    const std::vector<ZoneDisagreement> found = checkZones(zones, range, session.zoneFolder());
    const std::string begin = isoDate(std::chrono::year_month_day(range.first));
    const std::string end = isoDate(std::chrono::year_month_day(range.last));
    if (console.wantsJson()) {
        Json::Array list;
        for (const ZoneDisagreement& disagreement : found) list.push_back(disagreementJson(disagreement));
        console.printJson(object(
            {{"first", begin}, {"last", end}, {"zones", static_cast<long>(zones.size())}, {"disagreements", list}}));
        return;
    }
    for (const ZoneDisagreement& disagreement : found) console.print(describe(disagreement));
    if (!found.empty()) console.print();
    console.print(_("{} of {} time zones differ from the system's zone data between {} and {}.", found.size(),
                    zones.size(), begin, end));
}

}  // namespace

Command doctorZonesCommand() {
    return {"zones", _("List zones whose rule differs from the system's tzdata"), {}, runZones};
}

}  // namespace quode::cli
