// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quode::app {

/// The words for cities and alarms in one language. Placeholders in braces are filled in their order.
struct UserTexts {
    // cities
    std::string_view home, noCities, unknownCity;

    // alarms
    std::string_view on, off, atTheTime, before, after, snoozed, testRing, stop;
    std::string_view noneOn;
    std::string_view quodeRings, evolutionRings;
};

/// The words of a language by the id of "common/LanguagePack.h"; an unknown id reads as English.
const UserTexts& userTextsOf(int languageId);

}  // namespace quode::app
