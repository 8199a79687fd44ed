// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/day_method.h"

#include <algorithm>
#include <cmath>

#include "data/city_day.h"

namespace quode {
namespace {

using conventions::ConventionDay;
using conventions::ConventionTime;
using conventions::Origin;

constexpr double hoursPerDay = 24.0, minutesPerHour = 60.0;

std::array<double*, mainPrayerCount> mainTimes(PrayTimes& times) {
    std::array<double*, mainPrayerCount> slots{};
    for (std::size_t i = 0; i < slots.size(); ++i) slots[i] = &(times.*allPrayers[i].time);
    return slots;
}

TimeSource sourceOf(Origin origin) {
    switch (origin) {
        case Origin::highLatitude:
            return TimeSource::highLatitude;
        case Origin::otherLatitude:
            return TimeSource::otherLatitude;
        default:
            return TimeSource::convention;
    }
}

// The engine's hours are a day too large where the clock is a day ahead of the longitude; a convention's are not.
void bringIntoDay(PrayTimes& times) {
    const double shift = hoursPerDay * std::floor(times.Ogle / hoursPerDay);
    if (shift == 0.0) return;
    for (double PrayTimes::*slot :
         {&PrayTimes::Duha, &PrayTimes::IsfirariSems, &PrayTimes::Zeval, &PrayTimes::IsaSani}) {
        if (times.*slot != missingTime) times.*slot -= shift;
    }
}

/// Sets the times that follow from dawn and the begin of the night, by the engine's definitions.
void divideNight(CityDay& day) {
    PrayTimes& times = day.times;
    if (times.Imsak == missingTime || times.Aksam == missingTime) {
        times.Teheccud = times.Gece2 = times.Gece3 = missingTime;
        return;
    }
    const double begin = nightBegin(day), night = hoursPerDay - (begin - times.Imsak);
    times.Teheccud = times.Imsak - night / 6.0;
    times.Gece2 = begin + night * 0.5;
    times.Gece3 = begin + night / 3.0;
}

void applyConvention(const Site& site, CityDay& day) {
    const conventions::Method& method = site.choice.method;
    const conventions::Request request{site.latitude,
                                       site.longitude,
                                       method.height.value_or(site.choice.height),
                                       method.height.has_value(),
                                       day.date.Years,
                                       day.date.Months,
                                       day.date.Days,
                                       day.GMTValue,
                                       site.country};
    const ConventionDay computed = conventions::computeDay(method, request);
    PrayTimes& times = day.times;
    bringIntoDay(times);
    day.method.marks.fill({.source = TimeSource::ownRule});
    const auto slots = mainTimes(times);
    for (std::size_t i = 0; i < slots.size(); ++i) {
        const ConventionTime& time = computed.times[i];
        *slots[i] = time.exists() ? time.hours : missingTime;
        day.method.marks[i] = {sourceOf(time.origin), method.adjust[i], time.caution};
    }
    const ConventionTime& hanafi = computed.asrHanafi;
    times.AsriSani = hanafi.exists() ? hanafi.hours : missingTime;
    day.method.marks[indexOf(Prayer::asrHanafi)] = {sourceOf(hanafi.origin), method.adjustment(Prayer::asr),
                                                    hanafi.caution};
    times.isLatitudeChanged = times.isImsakBeforeTime = times.isIsaEvvelBeforeTime = false;
    day.method.point = computed.point;
    day.method.usedLatitude = computed.usedLatitude;
    day.method.nightBegin = computed.nightBegin;
    divideNight(day);
}

/// Applies the user's shadow and minutes to the engine's own times.
void adjustEngine(const Site& site, CityDay& day) {
    const conventions::Method& method = site.choice.method;
    PrayTimes& times = day.times;
    if (method.asrFactor == 2) times.AsriEvvel = times.AsriSani;
    const auto slots = mainTimes(times);
    for (std::size_t i = 0; i < slots.size(); ++i) {
        const int minutes = method.adjust[i];
        if (minutes == 0 || *slots[i] == missingTime) continue;
        *slots[i] += minutes / minutesPerHour;
        day.method.marks[i].adjusted = minutes;
    }
    const int asrMinutes = method.adjustment(Prayer::asr);
    if (asrMinutes == 0 || times.AsriSani == missingTime) return;
    times.AsriSani += asrMinutes / minutesPerHour;
    day.method.marks[indexOf(Prayer::asrHanafi)].adjusted = asrMinutes;
}

void applyTable(const Timetable& table, CityDay& day) {
    day.method.hasTable = true;
    day.method.tableName = table.name;
    const TimetableRow* row = table.rowOf(day.date);
    if (row == nullptr) return;
    day.method.isFromTable = true;
    for (std::size_t i = 0; i < row->iqama.size(); ++i) {
        if (row->iqama[i]) day.method.iqama[i] = row->iqama[i];
    }
    PrayTimes& times = day.times;
    const double shift = hoursPerDay * std::floor(times.Ogle / hoursPerDay);  // of the engine's own hours
    const auto put = [&](double& slot, std::size_t index, int minutes) {
        slot = minutes / minutesPerHour + shift;
        day.method.marks[index] = {.source = TimeSource::table};
    };
    const auto slots = mainTimes(times);
    for (std::size_t i = 0; i < slots.size(); ++i) {
        if (i != indexOf(Prayer::dhuhr) && row->minutes[i]) put(*slots[i], i, *row->minutes[i]);
    }
    if (row->asrHanafi) put(times.AsriSani, indexOf(Prayer::asrHanafi), *row->asrHanafi);
    const std::size_t dhuhr = indexOf(Prayer::dhuhr);
    if (row->minutes[dhuhr]) put(times.Ogle, dhuhr, *row->minutes[dhuhr]);
    if (row->minutes[indexOf(Prayer::fajr)]) times.isImsakBeforeTime = false;
    if (row->minutes[indexOf(Prayer::isha)]) times.isIsaEvvelBeforeTime = false;
    divideNight(day);
}

}  // namespace

double nightBegin(const CityDay& day) {
    return std::min(day.method.nightBegin.value_or(day.times.Aksam), day.times.Aksam);
}

void applyChoice(const Site& site, CityDay& day) {
    const SiteChoice& choice = site.choice;
    const bool wasDefault = !day.method.hasTable && day.method.method.isDefault();
    if (!wasDefault) day.method = {};
    day.method.iqama = choice.iqama;
    if (choice.isDefault()) return;
    day.method.method = choice.method;
    const conventions::Convention* convention = conventions::findConvention(choice.method.key);
    if (convention == nullptr || convention->computation == conventions::Computation::engine) {
        adjustEngine(site, day);
    } else {
        applyConvention(site, day);
    }
    if (choice.table) applyTable(*choice.table, day);
}

}  // namespace quode
