// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The formats of a timetable that other programs show.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

#include "app/printed_times.h"

namespace quode::app {

enum class TimetableFormat { pdf, html, ics };

/// The bytes of the file. Throws `Failure`: usage for a calendar with days before 15 October 1582.
/// @param pdf    for a PDF
/// @param alarm  for a calendar: a reminder so long before each prayer
std::string timetableFile(Session& session, const PrintRequest& request, TimetableFormat format,
                          const printing::PdfOptions& pdf = {},
                          std::optional<std::chrono::minutes> alarm = std::nullopt);

/// Writes a file in one step; what is there and no regular file, such as a device, is written to. Throws `Failure`: usage for a folder, outputFailed.
void writeFile(const std::filesystem::path& file, std::string_view bytes);

}  // namespace quode::app
