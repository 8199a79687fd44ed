// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The formats of quode month and quode year that other programs show: PDF, HTML, iCalendar.
#pragma once

#include <vector>

#include "app/printed_times.h"
#include "cli/commands.h"

namespace quode::cli {

/// --format with all formats, --output, --paper, --alarm, --night.
std::vector<Parameter> fileParameters();

/// Whether a format is one of these.
bool isFileFormat(const std::string& format);

/// Writes what a command puts out to the standard output, or to the file of --output. Throws `Failure`.
void writeText(Console& console, const Arguments& arguments, const std::string& text);

/// Writes the timetable in a format of a file. Throws `Failure`.
void writeTimetable(Console& console, const Arguments& arguments, const PrintRequest& request);

}  // namespace quode::cli
