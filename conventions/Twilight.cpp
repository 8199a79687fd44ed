// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "conventions/Twilight.h"

#include <algorithm>
#include <cmath>

#include "conventions/DiyanetNorth.h"
#include "conventions/SeasonalTwilight.h"

namespace quode::conventions {
namespace {

using Side = SolarDay::Side;

constexpr double limitLatitude = 48.5;  // degrees, of "nearest latitude"
constexpr int halfYear = 184;           // days

bool isMorning(const TwilightQuestion& question) {
    return question.side == Side::morning;
}

std::optional<double> sunrise(const SolarDay& day, const TwilightQuestion& question) {
    return day.atAltitude(-question.horizon, Side::morning);
}

std::optional<double> sunset(const SolarDay& day, const TwilightQuestion& question) {
    return day.atAltitude(-question.horizon, Side::evening);
}

/// Sunrise for Fajr, sunset for Isha.
std::optional<double> horizonTime(const SolarDay& day, const TwilightQuestion& question) {
    return day.atAltitude(-question.horizon, question.side);
}

/// The length of the night that the twilight belongs to, in hours.
std::optional<double> nightLength(const SolarDay& day, const TwilightQuestion& question) {
    const auto begin = sunset(isMorning(question) ? day.shifted(-1) : day, question);
    const auto end = sunrise(isMorning(question) ? day : day.shifted(1), question);
    if (!begin || !end) return std::nullopt;
    return *end + 24.0 - *begin;
}

/// The time that is a number of hours from sunrise or sunset into the night.
std::optional<double> intoNight(const SolarDay& day, const TwilightQuestion& question, std::optional<double> hours) {
    const auto horizon = horizonTime(day, question);
    if (!horizon || !hours) return std::nullopt;
    return isMorning(question) ? *horizon - *hours : *horizon + *hours;
}

std::optional<double> partOfNight(const SolarDay& day, const TwilightQuestion& question, double part) {
    const auto night = nightLength(day, question);
    if (!night) return std::nullopt;
    return intoNight(day, question, *night * part);
}

std::optional<double> atNearestLatitude(const SolarDay& day, const TwilightQuestion& question, bool byClock) {
    if (std::abs(day.latitude()) <= limitLatitude) return partOfNight(day, question, 0.5);
    const SolarDay other = day.atLatitude(std::copysign(limitLatitude, day.latitude()));
    TwilightQuestion there = question;
    there.rule = HighLatitudeRule::middleOfNight;  // the steepest angles are not reached there in midsummer either
    const auto time = twilight(other, there).hours;
    const auto horizon = horizonTime(other, question), local = horizonTime(day, question);
    if (!time || !horizon || !local) return std::nullopt;
    const bool isInNight = isMorning(question) ? *time < *local : *time > *local;
    if (byClock && isInNight) return time;
    return *local + (*time - *horizon);
}

std::optional<double> ofNearestDay(const SolarDay& day, const TwilightQuestion& question) {
    for (int days = 1; days <= halfYear; ++days) {
        for (const int sign : {-1, 1}) {
            const SolarDay other = day.shifted(sign * days);
            const auto time = other.atAltitude(-question.angle, question.side);
            if (time) return day.transit() + (*time - other.transit());
        }
    }
    return std::nullopt;
}

std::optional<double> seasonal(const SolarDay& day, const TwilightQuestion& question) {
    constexpr double seventhFrom = 55.0;  // degrees
    if (std::abs(day.latitude()) >= seventhFrom) return partOfNight(day, question, 1.0 / 7.0);
    const double minutes = isMorning(question) ? minutesBeforeSunrise(day.julianDay(), day.latitude())
                                               : minutesAfterSunset(day.julianDay(), day.latitude(), question.rule);
    return intoNight(day, question, minutes / 60.0);
}

/// The limit that a rule sets: Fajr is not earlier, Isha not later.
std::optional<double> limit(const SolarDay& day, const TwilightQuestion& question, bool isReached) {
    switch (question.rule) {
        case HighLatitudeRule::middleOfNight:
        case HighLatitudeRule::diyanetNorth:
            return partOfNight(day, question, 0.5);
        case HighLatitudeRule::oneSeventh:
            return partOfNight(day, question, 1.0 / 7.0);
        case HighLatitudeRule::angleBased:
            return partOfNight(day, question, question.angle / 60.0);
        case HighLatitudeRule::nearestLatitude:
            return atNearestLatitude(day, question, false);
        case HighLatitudeRule::nearestLatitudeClock:
            return atNearestLatitude(day, question, true);
        case HighLatitudeRule::nearestDay:
            return isReached ? std::nullopt : ofNearestDay(day, question);
        case HighLatitudeRule::moonsighting:
        case HighLatitudeRule::moonsightingAhmer:
        case HighLatitudeRule::moonsightingAbyad:
            return seasonal(day, question);
        default:
            return std::nullopt;
    }
}

/// False for a time in the local daylight, where times of other days and latitudes may fall.
bool isInNight(const SolarDay& day, const TwilightQuestion& question, double hours) {
    const auto horizon = horizonTime(day, question);
    return !horizon || (isMorning(question) ? hours <= *horizon : hours >= *horizon);
}

}  // namespace

TwilightAnswer twilight(const SolarDay& day, const TwilightQuestion& question) {
    if (question.rule == HighLatitudeRule::diyanetNorth) {
        if (const auto answer = diyanetNorth(day, question)) return *answer;
    }
    const auto reached = day.atAltitude(-question.angle, question.side);
    auto bound = limit(day, question, reached.has_value());
    if (bound && !isInNight(day, question, *bound)) bound = partOfNight(day, question, 0.5);
    if (!reached) return {bound, bound.has_value()};
    if (!bound) return {reached, false};
    const bool isBeyond = isMorning(question) ? *bound > *reached : *bound < *reached;
    return isBeyond ? TwilightAnswer{bound, true} : TwilightAnswer{reached, false};
}

}  // namespace quode::conventions
