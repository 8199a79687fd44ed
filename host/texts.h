// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode::host {

/// The words of the panel's own, beside those of the language packs. Placeholders are in braces.
struct Texts {
    const char* open;         ///< what opens the panel
    const char* quit;         ///< what ends the program
    const char* noCity;       ///< no city was chosen
    const char* addCity;      ///< how to choose one
    const char* withinHours;  ///< "within 2 h"
    const char* withinMinutes;
};

/// The words of a language by the id of "common/LanguagePack.h"; an unknown id reads as English.
const Texts& textsOf(int languageId);

}  // namespace quode::host
