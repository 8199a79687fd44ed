// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the pages look like.
#pragma once

#include "printing/Canvas.h"

namespace quode::printing {

inline constexpr Ink black{0.08, 0.09, 0.10};
inline constexpr Ink grey{0.33, 0.36, 0.36};
inline constexpr Ink white{1.0, 1.0, 1.0};
inline constexpr Ink accent{0.043, 0.365, 0.306};
inline constexpr Ink tint{0.906, 0.949, 0.937};  // of Fridays
inline constexpr Ink line{0.80, 0.84, 0.83};

inline constexpr double margin = 36.0;  // half an inch, which every printer leaves

/// The band on top, with place and title where reading begins and the month or year where it ends.
/// @return where it ends, points from the top
double drawBand(Canvas& canvas, const Timetable& timetable, const std::string& heading, const std::string& below);

/// Draws texts above the lower margin.
/// @return where they begin
double drawFooter(Canvas& canvas, const std::vector<std::string>& remarks, const std::vector<std::string>& notes);

void drawMonth(Canvas& canvas, const Timetable& timetable, const Page& page);

/// All months side by side.
void drawYear(Canvas& canvas, const Timetable& timetable);

}  // namespace quode::printing
