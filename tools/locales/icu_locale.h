// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The habits of locales as ICU has them: what the table of the programs is made from, and compared with.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/Locale.h"

namespace quode {

/// The facts of a locale such as "tr_TR" or "en_GB.UTF-8". A name that is none is taken for POSIX, as the C library does.
std::unique_ptr<Locale> icuLocale(const std::string& name);

/// For each country, and each "language_COUNTRY" that differs from its country: whether hours have an AM/PM sign there.
/// "001" is the rest of the world.
std::map<std::string, bool> twelveHourCountries();

}  // namespace quode
