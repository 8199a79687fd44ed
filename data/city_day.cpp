// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/city_day.h"

#include <cmath>
#include <string>

#include "astro/AstroGlobalFuncs.h"
#include "astro/MagneticVariation.h"
#include "common/civil_date.h"
#include "common/formatting.h"
#include "common/numbers.h"
#include "data/day_engine.h"

namespace quode {
namespace {

using std::chrono::days;
using std::chrono::minutes;
using std::chrono::seconds;
using std::chrono::sys_seconds;

seconds offsetOf(double hours) {
    return seconds(std::lround(hours * 3600.0));
}

}  // namespace

Site siteOf(const CityRecord& city) {
    Site site{city.latitude, city.longitude, city.rule, city.temkin, city.choice, city.known};
    site.country = city.countryCode.empty() ? city.nearestCountry : city.countryCode;
    if (site.choice.height == 0.0) site.choice.height = city.elevation.value_or(0);
    return site;
}

Site siteOf(const City& city) {
    Site site;
    site.latitude = leadingNumber<double>(city.latitude());
    site.longitude = leadingNumber<double>(city.longitude());
    site.rule.gmt = leadingNumber<double>(city.GMT());
    site.rule.dst = leadingNumber<int>(city.DST()) == 1;
    site.rule.startMonth = leadingNumber<int>(city.startMonth());
    site.rule.startDay = leadingNumber<int>(city.startDay());
    site.rule.stopMonth = leadingNumber<int>(city.stopMonth());
    site.rule.stopDay = leadingNumber<int>(city.stopDay());
    site.rule.hour = leadingNumber<int>(city.hour());
    site.temkin = leadingNumber<int>(city.temkin()) == 1;
    site.choice = city.choice();
    return site;
}

WidgetSkyInfo withLocalSun(WidgetSkyInfo sky, double offset) {
    constexpr double hoursPerDay = 24.0;
    const bool isWhole = sky.SunRise != missingTime && sky.SunSet != missingTime;
    if (isWhole) return sky;
    for (double* time : {&sky.SunRise, &sky.SunSet}) {
        if (*time != missingTime) *time = std::fmod(*time + offset + hoursPerDay, hoursPerDay);
    }
    return sky;
}

void setEngine(FastAstro& engine, const Site& site, const VAKDate& day) {
    const ZoneRule rule = site.clock().ruleOn(civilDate(day));
    engine.clearTimes();
    engine.SetCurrentDateTime(VAKDateMake(day.Days, day.Months, day.Years, 0, 0, 0));
    engine.SetPlace(site.latitude, site.longitude, rule.gmt, rule.dst ? 1 : 0, rule.startMonth, rule.startDay,
                    rule.stopMonth, rule.stopDay, rule.hour, site.temkin ? 1 : 0);
}

void computeTimes(FastAstro& engine, const Site& site, CityDay& result) {
    const Place& place = engine.CalculatePrayTimes();
    result.date = engine.iCurrentDate();
    result.times = place.TodayPrayTimes;
    result.GMTValue = place.GMTValue;
    result.isDSTTime = place.isDSTTime;
    result.kible = place.KibleAngle;
    applyChoice(site, result);
}

CityDay computeCityDay(const Site& site, const VAKDate& day) {
    CityDay result;
    FastAstro engine;
    engine.setTimesOnly(true);
    setEngine(engine, site, day);
    computeTimes(engine, site, result);
    result.sky = withLocalSun(engine.getSomeInfoForQuodeWidget(), result.GMTValue);
    result.declination =
        MagneticVariation::declination(MagneticVariation::fieldAt(day.Days, day.Months, day.Years),
                                       MagneticVariation::termsAt(site.latitude, site.longitude, declinationHeight));
    return result;
}

void computeCity(City& city, const VAKDate& day) {
    const CityDay computed = computeCityDay(siteOf(city), day);
    city.setPrayerTimes(computed.times);
    city.setSomeAstroIfo(computed.sky);
    city.setGMTStr(formatting::GetGMTValueStr(computed.isDSTTime, computed.GMTValue));
    city.setQiblaAngle(computed.kible.K);
    city.setMagneticVariation(computed.declination);
}

std::optional<double> timeOfPrayer(const PrayTimes& times, int code) {
    if (!isPrayer(code)) return std::nullopt;
    const double hours = times.*factsOf(code).time;
    return hours == missingTime ? std::nullopt : std::optional(hours);
}

std::optional<double> timeOfPrayer(const CityDay& day, int code) {
    constexpr double hoursPerDay = 24.0;
    const auto hours = timeOfPrayer(day.times, code);
    if (!hours) return std::nullopt;
    return *hours - hoursPerDay * std::floor(day.times.Ogle / hoursPerDay);
}

SkyTimes skyTimes(const CityDay& day) {
    // The marks of Sun and Moon differ; both are negative, which no rise or set is.
    const auto timeOf = [](double hours) { return hours < 0.0 ? std::nullopt : std::optional(hours); };
    const WidgetSkyInfo& sky = day.sky;
    SkyTimes times{timeOf(sky.SunRise), timeOf(sky.SunSet), timeOf(sky.MoonRise), timeOf(sky.MoonSet), {}};
    if (sky.MoonAltitudeOnSunSet != missingMoonTime) times.moonAltitudeAtSunset = sky.MoonAltitudeOnSunSet;
    return times;
}

int shownMinute(double hours) {
    const formatting::ClockMinute shown = formatting::shownClock(hours).value_or(formatting::ClockMinute{});
    const int minuteOfDay = shown.hour * 60 + shown.minute;
    // The rounded clock has no day: the nearest minute with that clock is the right one.
    return minuteOfDay + minutesPerDay * static_cast<int>(std::lround((hours * 60.0 - minuteOfDay) / minutesPerDay));
}

sys_seconds instantOf(const CityDay& day, double hours) {
    return sys_seconds(dayOf(day.date)) + minutes(shownMinute(hours)) - offsetOf(day.GMTValue);
}

VAKDate wallClock(const ZoneClock& clock, sys_seconds instant) {
    return recordOf(instant + seconds(clock.offsetAt(instant)));
}

std::optional<int> otherClockMinute(const ZoneClock& clock, const CityDay& day, std::optional<double> hours) {
    if (!hours) return std::nullopt;
    const seconds difference = seconds(clock.offsetAt(instantOf(day, *hours))) - offsetOf(day.GMTValue);
    if (difference == seconds(0)) return std::nullopt;
    return shownMinute(*hours) + static_cast<int>(floor<minutes>(difference).count());
}

std::optional<NextPrayer> nextPrayer(const Site& site, sys_seconds now) {
    const VAKDate clock = wallClock(site.clock(), now);
    std::optional<NextPrayer> next;
    FastAstro engine;
    engine.setTimesOnly(true);
    for (const int offset : {-1, 0, 1}) {
        setEngine(engine, site, recordOf(sys_seconds(dayOf(clock) + days(offset))));
        CityDay day;
        computeTimes(engine, site, day);
        for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
            const auto hours = timeOfPrayer(day, code);
            if (!hours) continue;
            const sys_seconds instant = instantOf(day, *hours);
            if (instant > now && (!next || instant < next->instant)) next = NextPrayer{code, instant, *hours, day.date};
        }
    }
    return next;
}

}  // namespace quode
