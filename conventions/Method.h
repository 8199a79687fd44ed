// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What a user chooses for a city: a convention and the changes made to it.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "conventions/Convention.h"

namespace quode::conventions {

/// A convention with the user's changes. The default is the engine's own method without changes.
struct Method {
    std::string key = "quode";
    int asrFactor = 0;                             ///< 1 or 2; 0: the convention's usual one
    std::optional<HighLatitudeRule> highLatitude;  ///< instead of the convention's
    std::optional<double> fajrAngle, ishaAngle;    ///< degrees, instead of the convention's
    std::array<int, mainPrayerCount> adjust{};     ///< minutes added to the rounded times
    std::string zone;                              ///< key of a zone, instead of the nearest; empty: the nearest
    std::optional<double> height;                  ///< metres, instead of the database's

    /// True when nothing differs from the engine's own method.
    bool isDefault() const {
        static const Method usual;  // made once: every day of a series asks
        return *this == usual;
    }
    /// The user's minutes for a prayer.
    int adjustment(Prayer prayer) const { return adjust[indexOf(prayer)]; }

    friend bool operator==(const Method&, const Method&) = default;
};

/// The method as a line of text, such as "diyanet asr=2 fajr-angle=18.5 adjust=2,0,0,0,0,-1".
std::string textOf(const Method& method);

/// Reads such a line.
/// @return nothing when the text is not a method, or not one that can be used (`problemOf`)
std::optional<Method> methodOf(std::string_view text);

/// The convention of a method, with the method's angles, shadow and rule for high latitudes.
/// @return nothing when the key is unknown
std::optional<Convention> conventionOf(const Method& method);

/// Why a method cannot be used.
enum class MethodProblem {
    unknownKey,   ///< no convention has its key
    ownRules,     ///< Quode's own method takes the shadow of Asr and minutes, nothing else
    asrFactor,    ///< neither standard nor Hanafi
    angle,        ///< not from 5 to 25 degrees
    height,       ///< not from 0 to 9000 metres
    minutes,      ///< more than 120
    unknownZone,  ///< the convention has no such zone
};

/// What is wrong with a method.
/// @return nothing when the method can be used
std::optional<MethodProblem> problemOf(const Method& method);

/// The name of a prayer as users type it: fajr, sunrise, dhuhr, asr, maghrib, isha.
std::string_view nameOf(Prayer prayer);

/// The prayer of such a name; nothing for another text.
std::optional<Prayer> prayerNamed(std::string_view name);

}  // namespace quode::conventions
