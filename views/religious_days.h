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

/// What the religious days of a day depend on, and their texts.
struct ReligiousDaysInput {
    VAKDate hijri;      ///< the Hijri date of the day
    VAKDate gregorian;  ///< the Gregorian date of the day
    /// The text of a key of the language pack; nothing when it is missing.
    std::function<std::optional<std::string>(std::int32_t key)> text;
    /// The clock text of the festival prayer; nothing when there is no city to compute it for.
    std::function<std::optional<std::string>()> festivalPrayer;
};

/// Adds the entries of a day to a list, in the order of the year's days. Throws std::exception, with the entries before
/// in the list, when a text is missing or does not fit its values.
void addReligiousDays(const ReligiousDaysInput& input, std::vector<std::string>& entries);

}  // namespace quode
