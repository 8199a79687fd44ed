// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The prayers with the name, number and field that each part of Quode uses for them: one table.
#pragma once

#include <array>
#include <cstddef>

#include "astro/PrayTimes.h"

namespace quode {

/// A time of the day. Fixed values: language packs, stored alarms and the widget use the codes.
enum class Prayer : int {
    fajr = 200,
    sunrise = 201,
    dhuhr = 202,
    asr = 203,
    maghrib = 204,
    isha = 205,
    ishraq = 206,
    asrHanafi = 207,
    isfirar = 208,
};

/// The code of a prayer.
constexpr int codeOf(Prayer prayer) {
    return static_cast<int>(prayer);
}

/// The codes of the first and the last of the six main prayers, which alone have alarms, and of the last of all.
inline constexpr int firstPrayer = codeOf(Prayer::fajr);
inline constexpr int lastMainPrayer = codeOf(Prayer::isha);
inline constexpr int lastPrayer = codeOf(Prayer::isfirar);

/// The number of the main prayers. Calculation conventions define these alone.
inline constexpr int mainPrayerCount = lastMainPrayer - firstPrayer + 1;

/// The place of a prayer in an array of prayers, from 0 on.
constexpr std::size_t indexOf(Prayer prayer) {
    return static_cast<std::size_t>(codeOf(prayer) - firstPrayer);
}

/// The prayer at a place in an array of prayers.
constexpr Prayer prayerAt(std::size_t index) {
    return static_cast<Prayer>(firstPrayer + static_cast<int>(index));
}

/// The facts of one prayer. Fixed values: the keys.
struct PrayerFacts {
    Prayer prayer;
    const char* key;                          ///< in JSON, in CSV and on the command line
    const char* packKey;                      ///< in the section PRAYERS of a language pack
    const char* plainName;                    ///< also accepted on the command line
    double PrayTimes::*time;                  ///< local decimal hours
    bool PrayTimes::*isEarlierDay = nullptr;  ///< set when the time is that of an earlier day; null: never
};

/// All prayers, ordered by code.
inline constexpr std::array<PrayerFacts, 9> allPrayers{{
    {Prayer::fajr, "fajr", "FAJR", "Imsak", &PrayTimes::Imsak, &PrayTimes::isImsakBeforeTime},
    {Prayer::sunrise, "sunrise", "TULU", "Gunes", &PrayTimes::Gunes},
    {Prayer::dhuhr, "dhuhr", "DHUHR", "Ogle", &PrayTimes::Ogle},
    {Prayer::asr, "asr", "ASR", "Ikindi", &PrayTimes::AsriEvvel},
    {Prayer::maghrib, "maghrib", "MAGHRIB", "Aksam", &PrayTimes::Aksam},
    {Prayer::isha, "isha", "ISHA", "Yatsi", &PrayTimes::IsaEvvel, &PrayTimes::isIsaEvvelBeforeTime},
    {Prayer::ishraq, "ishraq", "ISHRAQ", "Israk", &PrayTimes::Duha},
    {Prayer::asrHanafi, "asr_hanafi", "ASRTHANI", "AsrSani", &PrayTimes::AsriSani},
    {Prayer::isfirar, "isfirar", "I-SHAMS", "IsfirarSems", &PrayTimes::IsfirariSems},
}};

/// True for the codes 200 to 208.
constexpr bool isPrayer(int code) {
    return code >= firstPrayer && code <= lastPrayer;
}

/// True for the codes 200 to 205, which have alarms.
constexpr bool isMainPrayer(int code) {
    return code >= firstPrayer && code <= lastMainPrayer;
}

/// The facts of a prayer.
/// @param code  200 to 208
/// @throw std::out_of_range  for another code
constexpr const PrayerFacts& factsOf(int code) {
    return allPrayers.at(static_cast<std::size_t>(code - firstPrayer));
}

/// The number of a main prayer's alarm, 1 to 6: the TIMEID of its row in the user database (stored, fixed).
/// @param code  200 to 205
constexpr int alarmNumber(int code) {
    return code - firstPrayer + 1;
}

/// The code of the prayer to which an alarm belongs.
/// @param number  1 to 6
constexpr int prayerOfAlarm(int number) {
    return number + firstPrayer - 1;
}

}  // namespace quode
