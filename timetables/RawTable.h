// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Files of several formats, read into rows of texts.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "data/zone_clock.h"

namespace quode::timetables {

/// Why a file is no timetable. The message says what to do.
class ImportError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct RawRow {
    int line = 0;  ///< of the file; in JSON and calendars the number of the entry
    std::vector<std::string> cells;
};

/// A row that cannot be used.
struct ImportProblem {
    int line = 0;  ///< as that of a `RawRow`
    std::string text;
};

/// What the numbers of the rows count.
enum class RowUnit { line, entry, event };

struct RawTable {
    std::string format;  ///< "CSV with ;", "JSON", "iCalendar"
    std::vector<std::string> headings;
    std::vector<RawRow> rows;
    std::vector<ImportProblem> problems = {};  ///< what is in the file and not in the rows
    RowUnit unit = RowUnit::line;
};

/// Reads a file of any known format. Throws `ImportError`.
/// clock  of the place, for calendars in universal time
RawTable readRawTable(std::string_view content, const ZoneClock& clock);

RawTable readCsv(std::string_view content);
RawTable readJson(std::string_view content);
RawTable readCalendar(std::string_view content, const ZoneClock& clock);

}  // namespace quode::timetables
