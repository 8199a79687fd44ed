// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The formats of quode month and quode year that other programs show: PDF, HTML, iCalendar.
#pragma once

#include <vector>

#include "app/command.h"
#include "app/printed_times.h"

namespace quode::cli {

using namespace app;

/// --format with all formats, --output, --paper, --alarm, --night.
std::vector<Parameter> fileParameters();

/// Whether a format is one of these.
bool isFileFormat(const std::string& format);

/// Writes the timetable to the standard output, or to the file of --output. Throws `Failure`.
void writeTimetable(Session& session, const Arguments& arguments, const PrintRequest& request);

}  // namespace quode::cli
