// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What a user chooses for a city: a convention and the changes made to it.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "conventions/Convention.h"

namespace quode::conventions {

struct Method {
    std::string key = "quode";
    int asrFactor = 0;                             ///< 1 or 2; 0: the convention's usual one
    std::optional<HighLatitudeRule> highLatitude;  ///< instead of the convention's
    std::optional<double> fajrAngle, ishaAngle;    ///< degrees, instead of the convention's
    std::array<int, prayerCount> adjust{};         ///< minutes added to the finished times
    std::string zone;                              ///< of conventions with zones: the zone, instead of the nearest
    std::optional<double> height;                  ///< metres, instead of the database's

    bool isDefault() const { return *this == Method{}; }
    int adjustment(Prayer prayer) const { return adjust[static_cast<std::size_t>(prayer)]; }

    friend bool operator==(const Method&, const Method&) = default;
};

/// The method as a line of text, such as "diyanet asr=2 fajr-angle=18.5 adjust=2,0,0,0,0,-1", and back. A text that is
/// none gives nothing.
std::string textOf(const Method& method);
std::optional<Method> methodOf(std::string_view text);

/// A convention with the changes of a method. Nothing when the key is unknown.
std::optional<Convention> conventionOf(const Method& method);

/// What is wrong with a method, as a sentence; nothing when it can be used.
std::optional<std::string> problemOf(const Method& method);

/// The names of the prayers as users type them: fajr, sunrise, dhuhr, asr, maghrib, isha.
std::string_view nameOf(Prayer prayer);
std::optional<Prayer> prayerNamed(std::string_view name);

}  // namespace quode::conventions
