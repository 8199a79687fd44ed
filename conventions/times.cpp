// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "conventions/times.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "conventions/SolarDay.h"
#include "conventions/Sun.h"
#include "conventions/Twilight.h"
#include "conventions/UmmAlQura.h"

namespace quode::conventions {
namespace {

using Side = SolarDay::Side;

constexpr double sunriseDepression = 50.0 / 60.0;  // degrees: refraction and half of the disc
constexpr double dipOfOneMetre = 0.0321;           // degrees
constexpr int ramadan = 9;
constexpr double firstOf1970 = 2440587.5;  // Julian day
constexpr double alwaysDaylight = 60.0;    // degrees of latitude up to which the Sun rises and sets every day

/// Minutes by which sunrise is earlier and Maghrib later from a height on.
struct HeightStep {
    double height, minutes;
};
constexpr HeightStep heightSteps[] = {{1300, 4}, {1000, 3}, {700, 2}, {250, 1}};

double stepMinutes(double height) {
    for (const HeightStep& step : heightSteps) {
        if (height >= step.height) return step.minutes;
    }
    return 0.0;
}

double rounded(double minutes, Rounding rounding) {
    switch (rounding) {
        case Rounding::up:
            return std::ceil(minutes);
        case Rounding::down:
            return std::floor(minutes);
        default:
            return std::floor(minutes + 0.5);
    }
}

bool hasDaylight(const SolarDay& day, double horizon) {
    for (const int days : {-1, 0, 1}) {
        const SolarDay other = day.shifted(days);
        for (const SolarDay& moment : {other.at(SunMoment::event), other.at(SunMoment::startOfDay)}) {
            if (moment.noonAltitude() <= 0.0) return false;
            if (!moment.atAltitude(-horizon, Side::morning) || !moment.atAltitude(-horizon, Side::evening))
                return false;
        }
    }
    return true;
}

/// The highest latitude, at most that of the place, where the Sun rises and sets from the day before to the day after.
double latitudeWithDaylight(const SolarDay& day, double horizon) {
    constexpr double step = 0.1;
    double latitude = std::abs(day.latitude());
    if (latitude <= alwaysDaylight) return day.latitude();
    const auto signedLatitude = [&] { return std::copysign(latitude, day.latitude()); };
    if (hasDaylight(day, horizon)) return day.latitude();
    // The declination gives a start slightly above it; small steps find the latitude.
    const double declination = std::abs(sunAt(day.julianDay()).declination);
    latitude = std::min(latitude, 91.5 - declination);
    while (latitude > alwaysDaylight && !hasDaylight(day.atLatitude(signedLatitude()), horizon)) latitude -= step;
    return signedLatitude();
}

/// One day of one convention.
class DayComputation {
  public:
    DayComputation(const Convention& convention, const Request& request, const Method& method)
        : convention_(convention), request_(request), method_(method) {
        day_.point = usedPoint(convention, request.latitude, request.longitude, method.zone, request.country);
        julianDay_ = julianDayOf(request.year, request.month, request.day);
        const auto hijri = ummAlQuraDay(static_cast<int>(std::floor(julianDay_ - firstOf1970 + 0.5)));
        day_.isRamadan = hijri && hijri->month == ramadan;
        isRamadanKnown_ = hijri.has_value();
        const int hijriYear = hijri ? hijri->year : julianDay_ < firstOf1970 ? 0 : std::numeric_limits<int>::max();
        isFormer_ = hijriYear < convention.formerFajr.beforeYear;
        if (convention.height == HeightRule::dip) dip_ = dipOfOneMetre * std::sqrt(std::max(0.0, request.height));
        horizon_ = sunriseDepression + dip_;
        day_.usedLatitude = day_.point.latitude;
        day_.usedLatitude = latitudeWithDaylight(solarDay(SunMoment::event, day_.point.longitude), horizon_);
        day_.isOtherLatitude = day_.usedLatitude != day_.point.latitude;
        isNorth_ = day_.point.latitude >= convention.north.fromLatitude;
    }

    ConventionDay run() {
        for (std::size_t i = 0; i < mainPrayerCount; ++i) {
            const Prayer prayer = prayerAt(i);
            day_.times[i] = compute(prayer);
        }
        keepIshaAfterMaghrib();
        if (convention_.night == NightBegin::sunset) day_.nightBegin = sunset();
        day_.asrStandard = convention_.asrFactor == 1 ? day_.time(Prayer::asr) : asr(1);
        day_.asrHanafi = convention_.asrFactor == 2 ? day_.time(Prayer::asr) : asr(2);
        markYears();
        markOrder();
        return day_;
    }

  private:
    SolarDay solarDay(SunMoment moment, double longitude) const {
        return {julianDay_, day_.usedLatitude, longitude, request_.offset, moment};
    }

    SolarDay solarDayOf(Prayer prayer) const {
        const double longitude = prayer == Prayer::sunrise ? day_.point.sunriseLongitude : day_.point.longitude;
        return solarDay(convention_.rule(prayer).moment, longitude);
    }

    /// Minutes that the convention adds at this height.
    double minutesOf(Prayer prayer) const {
        const PrayerRule& rule = convention_.rule(prayer);
        const bool hasSteps = convention_.height == HeightRule::steps && request_.heightIsOfUser;
        if (hasSteps && prayer == Prayer::sunrise) return rule.minutes - stepMinutes(request_.height);
        if (hasSteps && prayer == Prayer::maghrib) return rule.minutes + stepMinutes(request_.height);
        return rule.minutes;
    }

    double angleOf(Prayer prayer) const {
        if (prayer == Prayer::fajr && isFormer_) return convention_.formerFajr.angle;
        if (prayer == Prayer::isha) {
            if (isNorth_) return convention_.north.ishaAngle;
            if (!method_.ishaAngle && day_.point.ishaAngle) return *day_.point.ishaAngle;
        }
        return convention_.rule(prayer).angle;
    }

    ConventionTime onClock(Prayer prayer, std::optional<double> universal, Origin origin) const {
        if (!universal || !std::isfinite(*universal)) return {};
        const double minutes = (*universal + request_.offset) * 60.0 + minutesOf(prayer);
        return finished(prayer, minutes, origin);
    }

    ConventionTime finished(Prayer prayer, double minutes, Origin origin) const {
        const double published = rounded(minutes, convention_.rule(prayer).rounding) + method_.adjustment(prayer);
        if (day_.isOtherLatitude && origin != Origin::highLatitude) origin = Origin::otherLatitude;
        return {published / 60.0, minutes / 60.0, origin};
    }

    ConventionTime byAngle(Prayer prayer) const {
        TwilightQuestion question;
        question.side = prayer == Prayer::fajr ? Side::morning : Side::evening;
        question.angle = angleOf(prayer) + dip_;
        question.horizon = horizon_;
        question.rule = isNorth_ ? convention_.north.rule : convention_.highLatitude;
        question.sunriseMinutes = minutesOf(Prayer::sunrise);
        question.sunsetMinutes = minutesOf(Prayer::maghrib);
        question.fajrAngle = angleOf(Prayer::fajr);
        const bool hasIshaAngle = convention_.rule(Prayer::isha).basis == Basis::depression;
        question.ishaAngle = hasIshaAngle ? angleOf(Prayer::isha) : question.fajrAngle;
        const TwilightAnswer answer = twilight(solarDayOf(prayer), question);
        return onClock(prayer, answer.hours, answer.isByRule ? Origin::highLatitude : Origin::rule);
    }

    std::optional<double> sunset() const {
        const auto universal = solarDayOf(Prayer::maghrib).atAltitude(-horizon_, Side::evening);
        if (!universal) return std::nullopt;
        return *universal + request_.offset;
    }

    ConventionTime asr(int factor) const {
        return onClock(Prayer::asr, solarDayOf(Prayer::asr).atShadow(factor), Origin::rule);
    }

    /// An interval after the published Maghrib, without the user's minutes for it.
    ConventionTime afterMaghrib(Prayer prayer) const {
        const ConventionTime& maghrib = day_.time(Prayer::maghrib);
        if (!maghrib.exists()) return {};
        const PrayerRule& rule = convention_.rule(prayer);
        const bool isLonger = day_.isRamadan && rule.ramadanMinutes > 0.0;
        const double published = maghrib.hours * 60.0 - method_.adjustment(Prayer::maghrib);
        return finished(prayer, std::round(published) + (isLonger ? rule.ramadanMinutes : rule.minutes), Origin::rule);
    }

    /// Where Maghrib has an angle, rules for high latitudes may put Isha before it.
    void keepIshaAfterMaghrib() {
        const ConventionTime& maghrib = day_.time(Prayer::maghrib);
        ConventionTime& isha = day_.times[indexOf(Prayer::isha)];
        const bool isByAngle = convention_.rule(Prayer::maghrib).basis == Basis::depression;
        if (!isByAngle || !maghrib.exists() || !isha.exists() || isha.exact >= maghrib.exact) return;
        isha = maghrib;
        isha.hours += (method_.adjustment(Prayer::isha) - method_.adjustment(Prayer::maghrib)) / 60.0;
        isha.origin = Origin::highLatitude;
    }

    void markYears() {
        ConventionTime &fajr = day_.times[indexOf(Prayer::fajr)], &isha = day_.times[indexOf(Prayer::isha)];
        if (isFormer_ && fajr.exists()) fajr.caution = Caution::formerAngle;
        const bool asksForRamadan = convention_.rule(Prayer::isha).ramadanMinutes > 0.0;
        if (asksForRamadan && !isRamadanKnown_ && isha.exists()) isha.caution = Caution::unknownRamadan;
    }

    /// Near the polar circles the minutes of a convention may be longer than the day.
    void markOrder() {
        double latest = -std::numeric_limits<double>::infinity();
        const auto mark = [&](ConventionTime& time) {
            if (time.exists() && time.hours < latest) time.caution = Caution::outOfOrder;
        };
        for (ConventionTime& time : day_.times) {
            if (&time == &day_.times[indexOf(Prayer::asr)]) {
                mark(day_.asrStandard);
                mark(day_.asrHanafi);
            }
            mark(time);
            if (time.exists()) latest = std::max(latest, time.hours);
        }
    }

    ConventionTime compute(Prayer prayer) const {
        switch (convention_.rule(prayer).basis) {
            case Basis::horizon: {
                const Side side = prayer == Prayer::sunrise ? Side::morning : Side::evening;
                return onClock(prayer, solarDayOf(prayer).atAltitude(-horizon_, side), Origin::rule);
            }
            case Basis::depression:
                return byAngle(prayer);
            case Basis::transit:
                return onClock(prayer, solarDayOf(prayer).transit(), Origin::rule);
            case Basis::shadow:
                return asr(convention_.asrFactor);
            default:
                return afterMaghrib(prayer);
        }
    }

    const Convention& convention_;
    const Request& request_;
    const Method& method_;
    ConventionDay day_;
    double julianDay_ = 0.0, dip_ = 0.0, horizon_ = sunriseDepression;
    bool isNorth_ = false, isFormer_ = false, isRamadanKnown_ = false;
};

}  // namespace

ConventionDay computeDay(const Convention& convention, const Request& request, const Method& method) {
    return DayComputation(convention, request, method).run();
}

ConventionDay computeDay(const Method& method, const Request& request) {
    const std::optional<Convention> convention = conventionOf(method);
    return computeDay(convention.value_or(defaultConvention()), request, method);
}

}  // namespace quode::conventions
