// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quode {

/// Names for assistive technology, never shown.
enum class SpokenText { alarmFor, compass, cityInformation, city, cityDetails, religiousDays, furtherTimes };

/// A name in a language of "common/LanguagePack.h"; in English for an unknown id. In alarmFor, "%@" is the placeholder of
/// the prayer's name.
std::string spokenText(SpokenText text, int languageId);

}  // namespace quode
