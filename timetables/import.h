// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Turns the texts of a timetable into times. A row is either understood whole or named as a problem: nothing is
// guessed.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "data/Timetable.h"
#include "timetables/DateReader.h"
#include "timetables/RawTable.h"
#include "timetables/SunCheck.h"
#include "timetables/columns.h"

namespace quode::timetables {

struct Import {
    std::string format;
    RowUnit unit = RowUnit::line;                         ///< what the lines of the problems count
    std::vector<std::pair<std::string, Column>> columns;  ///< heading and what it was taken for
    std::vector<std::string> ignored;                     ///< headings that mean nothing here
    DateOrder dateOrder = DateOrder::unknown;
    bool isTwelveHour = false;  ///< a clock of 12 hours without the half of the day
    bool hasSeconds = false;    ///< some times have seconds; they are rounded to the nearest minute, half a minute up
    Timetable table;
    std::vector<ImportProblem> problems;
};

/// Reads a table for the place that `check` knows. Throws `ImportError` when the file as a whole cannot be understood.
Import importTable(const RawTable& raw, const ImportOptions& options, SunCheck& check);

}  // namespace quode::timetables
