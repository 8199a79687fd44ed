// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quode {

/// Names that are never shown, only spoken by assistive technology.
enum class SpokenText { alarmFor, compass, cityInformation, city, cityDetails, religiousDays, furtherTimes };

/// A name in a language of "common/LanguagePack.h"; in English for an unknown one. In alarmFor "%@" stands for the name
/// of the prayer.
std::string spokenText(SpokenText text, int languageId);

}  // namespace quode
