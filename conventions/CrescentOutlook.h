// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

namespace quode::conventions {

/// How well the new crescent can be expected to be seen on one evening. An outlook by two published criteria, not a
/// calendar: the sky, the eye and the authority of the place decide.
struct CrescentEvening {
    double julianDay = 0.0;    ///< 0 h UT of the civil date
    double sunset = 0.0;       ///< universal hours of that date
    double moonset = 0.0;      ///< the same; equals sunset where the Moon sets first
    double bestTime = 0.0;     ///< the same: four ninths of the way between them
    double ageHours = 0.0;     ///< of the Moon at the best time, since conjunction
    double arcOfLight = 0.0;   ///< degrees between Moon and Sun, from the Earth's centre
    double arcOfVision = 0.0;  ///< degrees of altitude between them, from the Earth's centre, without air
    double width = 0.0;        ///< of the crescent, minutes of arc, seen from the place
    double yallop = 0.0;       ///< q
    double odeh = 0.0;         ///< V
    char yallopZone = 'F';     ///< A easily visible ... F not visible
    char odehZone = 'D';       ///< A visible by naked eye ... D not visible
};

/// The evening of a date; nothing when the Sun does not set, or when the Moon sets before it.
/// julianDay   of 0 h UT of the civil date; offset: hours of its clock east of Greenwich
/// conjunction Julian day of the new moon before it
/// Sources: B. D. Yallop, NAO Technical Note 69 (1997); M. Sh. Odeh, Experimental Astronomy 18 (2004) 39.
std::optional<CrescentEvening> crescentEvening(double julianDay, double latitude, double longitude, double offset,
                                               double conjunction);

}  // namespace quode::conventions
