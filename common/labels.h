// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Names and durations in the language of the process.
#pragma once

#include <chrono>
#include <string>

namespace quode {

class GlobalFuncs;

/// The name of a prayer: from the language pack where it is in the language of the process, else from the catalogue.
/// @param code  200 (Fajr) to 208; another code gives "Prayer time"
std::string prayerLabel(const GlobalFuncs& services, int code);

/// The name of a Hijri month, found in the same way.
/// @param month  1..12; another number gives the number itself
std::string hijriMonthLabel(const GlobalFuncs& services, int month);

/// A duration such as "45 min" or "3 h 30 min".
std::string durationLabel(std::chrono::minutes duration);

}  // namespace quode
