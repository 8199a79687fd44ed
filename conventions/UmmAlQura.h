// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace quode::conventions {

struct HijriDay {
    int year = 0, month = 0, day = 0;
};

/// The Hijri date by the Umm al-Qura calendar of a day counted from 1 January 1970; nothing outside 1300 to 1600 AH.
std::optional<HijriDay> ummAlQuraDay(int dayFrom1970);

}  // namespace quode::conventions
