// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A timetable that somebody imports: CSV, JSON or a calendar.
#include "fuzz/target.h"
#include "timetables/import.h"

namespace {

quode::Site istanbul() {
    quode::Site site;
    site.latitude = 41.01384;
    site.longitude = 28.94966;
    site.rule.gmt = 3.0;
    return site;
}

}  // namespace

namespace quode::fuzz {
namespace {

void consumeTimetable(std::string_view bytes) {
    using namespace timetables;
    try {
        const RawTable raw = readRawTable(bytes, ZoneRule{});
        SunCheck check(istanbul());
        const Import import = importTable(raw, {DateOrder::unknown, 2026}, check);
        for (const ImportProblem& problem : import.problems) require(!problem.text.empty());
        for (const auto& [day, row] : import.table.rows) require(timetableRowOf(textOf(row)) == row);
    } catch (const ImportError& error) {
        require(*error.what() != '\0');
    }
}

const Target ofTimetable("timetable", consumeTimetable);

}  // namespace
}  // namespace quode::fuzz
