// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "astro/VAKDate.h"

namespace quode {

/// The input of the religious days of a day, with their texts.
struct ReligiousDaysInput {
    VAKDate hijri;      ///< the Hijri date of the day
    VAKDate gregorian;  ///< the Gregorian date of the day
    /// The text of a key of the language pack; nothing when it is missing.
    std::function<std::optional<std::string>(std::int32_t key)> text;
    /// The clock text of the festival prayer; nothing without a city.
    std::function<std::optional<std::string>()> festivalPrayer;
};

/// Appends the entries of a day to a list, in the order of the year's days.
/// @throw std::exception  when a text is missing or does not match its values; the list has the entries before it
void addReligiousDays(const ReligiousDaysInput& input, std::vector<std::string>& entries);

}  // namespace quode
