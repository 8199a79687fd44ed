// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The rules of a convention in words and numbers.
#pragma once

#include <string>

#include "conventions/Convention.h"

namespace quode::app {

class Session;

/// The rule of one time: "18° +2 min, rounded up".
std::string ruleText(const conventions::Convention& convention, const conventions::PrayerRule& rule);

/// The same as a sentence for who does not know the field: "The Sun is 18° below the horizon; 2 minutes are added."
std::string ruleSentence(const conventions::Convention& convention, Prayer prayer);

/// The name of a convention and its authority: names of bodies as these write them.
std::string nameText(const conventions::Convention& convention);
std::string authorityText(const conventions::Convention& convention);

/// Where the parameters of a convention come from, and what users need to know of it; may be empty.
std::string sourceText(const conventions::Convention& convention);
std::string remarkText(const conventions::Convention& convention);

/// How a convention agrees with published rows, in one line, or that it is not checked.
std::string agreementText(Session& session, const conventions::Convention& convention);

/// What happens where the Sun does not sink far enough, in a line.
std::string highLatitudeText(conventions::HighLatitudeRule rule);

}  // namespace quode::app
