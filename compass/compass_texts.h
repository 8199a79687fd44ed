// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "common/GlobalFuncs.h"
#include "common/text_format.h"

namespace quode {

/// The ids of the compass's texts in the language pack. Fixed values.
namespace compass_text {
enum Id : int {
    title = 1100,
    close = 1101,
    north = 1102,  // the letters of the dial
    east = 1103,
    south = 1104,
    west = 1105,
    bearing = 1106,
    magneticBearing = 1107,
    declination = 1108,
    model = 1109,
    heading = 1110,
    northUp = 1111,
    turnByHand = 1112,
    waiting = 1113,
    calibrate = 1114,
    noSensor = 1115,
    accessDenied = 1116,
    noAnswer = 1117,
};
}

/// An angle in 0..360 with minutes, such as "5°07'"; rounded to the minute.
std::string degreesAndMinutes(double degrees);

/// A direction in whole degrees 0..359, such as "152°".
std::string wholeDegrees(double degrees);

/// The text of an id with its values; nothing where the pack lacks it, or has it with other placeholders, which is logged.
std::optional<std::string> compassText(GlobalFuncs& services, compass_text::Id id,
                                       std::initializer_list<FormatValue> values = {});

/// The numbers of the compass, one line each: the qibla from true north and from magnetic north, the declination, and its
/// model.
/// @param qiblaAngle   degrees from north, counter-clockwise
/// @param declination  degrees, positive in the east
std::vector<std::string> compassNumbers(GlobalFuncs& services, double qiblaAngle, double declination);

/// Today's declination by the current model of the field, with the model's epoch and age. The compass itself turns by the
/// declination of `compassNumbers`.
/// @param latitude,longitude  degrees, north and east positive
std::string currentFieldLine(GlobalFuncs& services, double latitude, double longitude);

/// The letters for north, east, south and west; empty where the pack lacks them.
std::array<std::string, 4> cardinalLetters(GlobalFuncs& services);

}  // namespace quode
