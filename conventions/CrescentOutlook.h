// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

namespace quode::conventions {

/// The expected visibility of the new crescent on one evening, by two published criteria. It is an outlook, not a
/// calendar: the weather, the observer and the authority of the place decide.
struct CrescentEvening {
    double julianDay = 0.0;    ///< 0 h UT of the civil date
    double sunset = 0.0;       ///< universal hours of that date
    double moonset = 0.0;      ///< universal hours of that date; at most 12 hours after sunset
    double bestTime = 0.0;     ///< universal hours of that date: four ninths of the way from sunset to moonset
    double ageHours = 0.0;     ///< of the Moon at the best time, since conjunction
    double arcOfLight = 0.0;   ///< degrees between Moon and Sun, from the Earth's centre
    double arcOfVision = 0.0;  ///< degrees of altitude between them, from the Earth's centre, without air
    double width = 0.0;        ///< of the crescent, minutes of arc, seen from the place
    double yallop = 0.0;       ///< q
    double odeh = 0.0;         ///< V
    char yallopZone = 'F';     ///< A easily visible ... F not visible
    char odehZone = 'D';       ///< A visible by naked eye ... D not visible
};

/// The outlook for the evening of a date.
/// @param julianDay           of 0 h UT of the civil date
/// @param latitude,longitude  degrees, north and east positive
/// @param offset              hours of the civil clock east of Greenwich
/// @param conjunction         Julian day of the new moon before it, universal time
/// @return nothing when the Sun does not set, or when the Moon sets before it
/// Sources: B. D. Yallop, NAO Technical Note 69 (1997); M. Sh. Odeh, Experimental Astronomy 18 (2004) 39.
std::optional<CrescentEvening> crescentEvening(double julianDay, double latitude, double longitude, double offset,
                                               double conjunction);

}  // namespace quode::conventions
