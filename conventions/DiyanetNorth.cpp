// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "conventions/DiyanetNorth.h"

#include <chrono>
#include <cmath>

#include "conventions/Sun.h"

namespace quode::conventions {
namespace {

using Side = SolarDay::Side;

constexpr double fullTwilight = 18.0;                                         // degrees
constexpr int springRamp = 22, autumnRampOfFajr = 26, autumnRampOfIsha = 20;  // days

/// Published sunrise and sunset of a day, in its universal hours.
struct Daylight {
    double sunrise, sunset;
    double night() const { return 24.0 + sunrise - sunset; }
};

class Season {
  public:
    Season(const SolarDay& day, const TwilightQuestion& question) : day_(day), question_(question) {
        using namespace std::chrono;
        const sys_days date{days(static_cast<int>(std::floor(day.julianDay() - 2440587.5 + 0.5)))};
        const year year = year_month_day(date).year();
        const auto offset = [&](month_day of) { return int((sys_days(year / of) - date).count()); };
        midsummer_ = offset(June / 21);
        spring_ = offset(February / 1);
        autumn_ = offset(November / 10);
    }

    bool isReached(int offset) const { return day_.shifted(offset).midnightAltitude() <= -fullTwilight; }

    /// The first and the last date without full twilight, in days from the day; nothing when there is no such date.
    std::optional<int> first() const {
        if (isReached(midsummer_)) return std::nullopt;
        int reached = spring_, missed = midsummer_;
        while (missed - reached > 1) {
            const int middle = (reached + missed) / 2;
            (isReached(middle) ? reached : missed) = middle;
        }
        return missed;
    }

    int last() const {
        int missed = midsummer_, reached = autumn_;
        while (reached - missed > 1) {
            const int middle = (reached + missed) / 2;
            (isReached(middle) ? reached : missed) = middle;
        }
        return missed;
    }

    std::optional<Daylight> daylight(int offset) const {
        const SolarDay other = day_.shifted(offset);
        const auto rise = other.atAltitude(-question_.horizon, Side::morning);
        const auto set = other.atAltitude(-question_.horizon, Side::evening);
        if (!rise || !set) return std::nullopt;
        return Daylight{*rise + question_.sunriseMinutes / 60.0, *set + question_.sunsetMinutes / 60.0};
    }

    std::optional<double> plain(int offset) const {
        return day_.shifted(offset).atAltitude(-question_.angle, question_.side);
    }

    /// The part of the night on the last day with full twilight.
    std::optional<double> part(int lastReached) const {
        const auto light = daylight(lastReached);
        const auto fajr = day_.shifted(lastReached).atAltitude(-question_.fajrAngle, Side::morning);
        if (!light || !fajr) return std::nullopt;
        return (*fajr + 24.0 - light->sunset) / (3.0 * light->night());
    }

    std::optional<double> estimate(int offset, double part) const {
        const auto light = daylight(offset);
        if (!light) return std::nullopt;
        if (question_.side == Side::evening) return light->sunset + part * light->night();
        return light->sunrise - part * light->night() * question_.fajrAngle / question_.ishaAngle;
    }

  private:
    const SolarDay& day_;
    const TwilightQuestion& question_;
    int midsummer_ = 0, spring_ = 0, autumn_ = 0;
};

/// The linear ramp from the plain angle on one day to the estimate on another, at day 0.
std::optional<TwilightAnswer> ramp(const Season& season, int plainDay, int estimateDay, double part) {
    const auto plain = season.plain(plainDay), there = season.estimate(plainDay, part), here = season.estimate(0, part);
    if (!plain || !there || !here) return std::nullopt;
    const double share = double(estimateDay) / double(estimateDay - plainDay);
    return TwilightAnswer{*here + (*plain - *there) * share, true};
}

}  // namespace

std::optional<TwilightAnswer> diyanetNorth(const SolarDay& day, const TwilightQuestion& question) {
    const Season season(day, question);
    const std::optional<int> first = season.first();
    if (!first || *first - springRamp >= 0) return std::nullopt;
    const int last = season.last();
    const int autumnRamp = question.side == Side::morning ? autumnRampOfFajr : autumnRampOfIsha;
    if (last + autumnRamp <= 0) return std::nullopt;
    const auto part = season.part(*first - 1);
    if (!part) return std::nullopt;
    if (*first > 0) return ramp(season, *first - springRamp, *first, *part);
    if (last < 0) return ramp(season, last + autumnRamp, last, *part);
    const auto time = season.estimate(0, *part);
    if (!time) return std::nullopt;
    return TwilightAnswer{time, true};
}

}  // namespace quode::conventions
