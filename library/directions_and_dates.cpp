// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The qibla, and Hijri dates.
#include "astro/FastAstro.h"
#include "common/calendar.h"
#include "common/civil_date.h"
#include "conventions/UmmAlQura.h"
#include "data/qibla.h"
#include "library/handles.h"

namespace quode::library {
namespace {

using std::chrono::days;
using std::chrono::sys_days;

std::optional<quode_date> hijriOf(sys_days day, std::int32_t calendar) {
    if (calendar == QUODE_HIJRI_UMM_AL_QURA) {
        const auto hijri = conventions::ummAlQuraDay(static_cast<int>(day.time_since_epoch().count()));
        if (!hijri) return std::nullopt;
        return quode_date{hijri->year, hijri->month, hijri->day};
    }
    if (calendar != QUODE_HIJRI_TABLE) return std::nullopt;
    const VAKDate hijri = calendar::JulianToHijri(calendar::GregorianDateToJulian(quode::recordOf(day)));
    if (hijri.Years < 0) return std::nullopt;
    return quode_date{hijri.Years, hijri.Months, hijri.Days};
}

/// About where a Hijri date lies: by the mean length of a month, from 16 July 622 on.
sys_days nearDayOf(const quode_date& hijri) {
    constexpr sys_days epoch = std::chrono::year(622) / 7 / 19;  // Gregorian
    constexpr double meanMonth = 29.530588;
    const double months = (hijri.year - 1) * 12.0 + (hijri.month - 1);
    return epoch + days(static_cast<int>(months * meanMonth)) + days(hijri.day - 1);
}

bool isSame(const quode_date& a, const quode_date& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

std::optional<sys_days> dayOfHijri(const quode_date& hijri, std::int32_t calendar) {
    constexpr int firstYear = 1300, lastYear = 1600, mostDays = 31, reach = 6;
    if (hijri.year < firstYear || hijri.year > lastYear || hijri.month < 1 || hijri.month > 12 || hijri.day < 1 ||
        hijri.day > mostDays) {
        return std::nullopt;
    }
    const sys_days near = nearDayOf(hijri);
    for (int offset = -reach; offset <= reach; ++offset) {
        const auto found = hijriOf(near + days(offset), calendar);
        if (found && isSame(*found, hijri)) return near + days(offset);
    }
    return std::nullopt;
}

/// Hands a result over, where there is one.
std::int32_t give(const std::optional<quode_date>& result, quode_date* target) {
    if (!result) return 0;
    *target = *result;
    return 1;
}

}  // namespace
}  // namespace quode::library

using namespace quode;
using namespace quode::library;

quode_status quode_qibla_at(double latitude, double longitude, quode_qibla* qibla, quode_error* error) {
    return guarded(error, [&] {
        checkPoint(latitude, longitude);
        *qibla = {bearingOf(FastAstro::KibleAcisi(latitude, longitude)), distanceToKaaba(latitude, longitude)};
    });
}

int32_t quode_hijri_of(quode_date date, int32_t calendar, quode_date* hijri) {
    const auto day = library::dayOf(date);
    return give(day ? hijriOf(*day, calendar) : std::nullopt, hijri);
}

int32_t quode_date_of_hijri(quode_date hijri, int32_t calendar, quode_date* date) {
    const auto day = dayOfHijri(hijri, calendar);
    return give(day ? std::optional(dateOf(*day)) : std::nullopt, date);
}
