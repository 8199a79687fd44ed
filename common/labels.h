// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Names, numbers and durations in the language of the process.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace quode {

class GlobalFuncs;

/// The name of a prayer: from the language pack where it is in the language of the process, else from the catalogue.
/// @param code  200 (Fajr) to 208; another code gives "Prayer time"
std::string prayerLabel(const GlobalFuncs& services, int code);

/// The name of a Hijri month, found in the same way.
/// @param month  1..12; another number gives the number itself
std::string hijriMonthLabel(const GlobalFuncs& services, int month);

/// A number with a fixed count of decimals after the decimal mark of a language: "3,25"; with `withSign` a plus sign too.
std::string decimalText(double value, int places, std::string_view decimalMark, bool withSign = false);

/// A duration such as "45 min" or "3 h 30 min".
std::string durationLabel(std::chrono::minutes duration);

}  // namespace quode
