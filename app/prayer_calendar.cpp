// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include "app/day_view.h"
#include "app/method_choice.h"
#include "app/printed_times.h"
#include "app/session.h"
#include "data/city_days.h"
#include "data/iqama.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

/// What the identifiers of a place's events hold: the number of the city, else the coordinates.
std::string placeKey(const CityRecord& city) {
    return city.id != 0 ? std::to_string(city.id) : fmt::format("{:.4f}_{:.4f}", city.latitude, city.longitude);
}

std::string describe(Session& session, const CityDay& day, int code, const CityRecord& city) {
    std::string text =
        _("{0} at {1}, {2}", session.prayerName(code), clockText(session, timeOfPrayer(day, code)), city.name);
    if (const auto iqama = iqamaMinute(day, code)) {
        text += '\n';
        text += _("Iqama: {}", clockText(session, std::chrono::minutes(*iqama)));
    }
    if (const auto note = sourceNote(day, code)) text += '\n' + *note;
    return text;
}

}  // namespace

printing::PrayerCalendar prayerCalendar(Session& session, const ChosenPlace& place, const std::vector<VAKDate>& days,
                                        std::optional<std::chrono::minutes> alarm) {
    const CityRecord& city = place.city;
    printing::PrayerCalendar calendar;
    calendar.name = _("Prayer times, {}", city.name);
    calendar.zone = city.zone;
    calendar.place = fullName(session, city);
    calendar.latitude = city.latitude;
    calendar.longitude = city.longitude;
    calendar.made = session.now();
    calendar.alarm = alarm;
    std::vector<CityDay> computed(days.size());
    computeDayTimes(siteOf(city), days, computed);
    for (const CityDay& day : computed) {
        for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
            const auto hours = timeOfPrayer(day, code);
            if (!hours) continue;
            const std::string uid = fmt::format("{}-{}-{}@quode", isoDate(day.date), prayerKey(code), placeKey(city));
            calendar.events.push_back(
                {uid, instantOf(day, *hours), session.prayerName(code), describe(session, day, code, city)});
        }
    }
    return calendar;
}

}  // namespace quode::app
