// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables/SunCheck.h"

#include <chrono>
#include <cmath>

#include "conventions/times.h"

namespace quode::timetables {
namespace {

using conventions::ConventionDay;

constexpr double lightNights = 45.0;                 // degrees; from there on authorities have rules for summer
constexpr double ruleBend = 3.0, largestBend = 6.0;  // minutes

std::chrono::year_month_day dateOf(int number) {
    return std::chrono::sys_days(std::chrono::days(number));
}

ConventionDay computed(const Site& site, int number, double fajrAngle, double ishaAngle, double offset) {
    conventions::Method method;
    method.key = "mwl";
    method.fajrAngle = fajrAngle;
    method.ishaAngle = ishaAngle;
    const auto date = dateOf(number);
    conventions::Request request;
    request.latitude = site.latitude;
    request.longitude = site.longitude;
    request.year = int(date.year());
    request.month = int(unsigned(date.month()));
    request.day = int(unsigned(date.day()));
    request.offset = offset;
    return computeDay(method, request);
}

SunCheck::Range around(double middle, int before, int after) {
    const int minute = int(std::lround(middle));
    return {minute - before, minute + after, middle, 0.0};
}

}  // namespace

double SunCheck::offset(int number) const {
    return offsetOn(site_.rule, dateOf(number));
}

const SunCheck::Day& SunCheck::day(int number) {
    const auto known = days_.find(number);
    if (known != days_.end()) return known->second;
    // The deepest angles that any authority uses, and the usual ones.
    const ConventionDay deep = computed(site_, number, 21.0, 21.0, offset(number));
    const ConventionDay usual = computed(site_, number, 18.0, 17.0, offset(number));
    const auto minutes = [](const conventions::ConventionTime& time) { return time.exact * 60.0; };
    Day whole;
    auto& day = whole.ranges;
    const double sunrise = minutes(usual.time(Prayer::sunrise)), sunset = minutes(usual.time(Prayer::maghrib));
    const double fajr = minutes(usual.time(Prayer::fajr)), isha = minutes(usual.time(Prayer::isha));
    day[0] = {int(minutes(deep.time(Prayer::fajr))) - 20, int(sunrise) - 20, fajr, 0.0};
    day[1] = around(sunrise, 20, 15);
    day[2] = around(minutes(usual.time(Prayer::dhuhr)), 10, 45);
    day[3] = {int(minutes(usual.asrStandard)) - 12, int(minutes(usual.asrHanafi)) + 20, minutes(usual.asrStandard),
              true};
    day[4] = around(sunset, 5, 30);
    day[5] = {int(sunset) + 35, std::max(int(minutes(deep.time(Prayer::isha))) + 45, int(sunset) + 135), isha, 0.0};
    for (std::size_t i = 0; i < day.size(); ++i) {
        const bool isOfNight = i == 0 || i == 5;
        const bool isSteady = deep.times[i].origin == conventions::Origin::rule;
        day[i].bend = !isSteady ? largestBend : isOfNight && std::abs(site_.latitude) >= lightNights ? ruleBend : 0.0;
    }
    whole.isRamadan = usual.isRamadan;
    return days_.emplace(number, whole).first->second;
}

}  // namespace quode::timetables
