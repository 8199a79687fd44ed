// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

#include "conventions/Convention.h"

namespace quode::conventions {

/// How a convention agrees with the published rows of its test.
struct PublishedAgreement {
    std::string_view key = {};  ///< of the convention
    int rows = 0;               ///< one day at one place each
    int places = 0;
    std::array<int, mainPrayerCount> exact = {};      ///< percent of the rows
    std::array<int, mainPrayerCount> withinOne = {};  ///< minute, percent of the rows
    std::array<int, mainPrayerCount> withinTwo = {};  ///< minutes, percent of the rows
    int worst = 0;                                    ///< minutes, the largest difference
};

/// The agreement of a convention; null when there are no rows of it.
const PublishedAgreement* publishedAgreement(std::string_view key);

}  // namespace quode::conventions
