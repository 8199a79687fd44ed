// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The rules of a convention in words and numbers.
#pragma once

#include <string>

#include "conventions/Convention.h"

namespace quode::app {

/// The rule of one time: "18° +2 min, rounded up".
std::string ruleText(const conventions::Convention& convention, const conventions::PrayerRule& rule);

/// The same as a sentence for who does not know the field: "The Sun is 18° below the horizon; 2 minutes are added."
std::string ruleSentence(const conventions::Convention& convention, Prayer prayer);

/// What happens where the Sun does not sink far enough, in a line.
std::string highLatitudeText(conventions::HighLatitudeRule rule);

}  // namespace quode::app
