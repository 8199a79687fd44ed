// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "conventions/SolarDay.h"

#include <cmath>

#include "conventions/degrees.h"

namespace quode::conventions {
namespace {

constexpr double tolerance = 0.05 / 3600.0;  // hours
constexpr int maximumSteps = 60;

}  // namespace

SolarDay::SolarDay(double julianDay, double latitude, double longitude, double offset, SunMoment moment)
    : julianDay_(julianDay),
      latitude_(latitude),
      longitude_(longitude),
      offset_(offset),
      moment_(moment),
      start_(conventions::sunAt(julianDay)) {
    const double noon = 12.0 - longitude / 15.0;
    meanNoon_ = noon - 24.0 * std::floor((noon + offset) / 24.0);
    transit_ = culmination(meanNoon_);
}

SunPlace SolarDay::sunAt(double hours) const {
    return moment_ == SunMoment::startOfDay ? start_ : conventions::sunAt(julianDay_ + hours / 24.0);
}

/// The instant near a mean noon or midnight at which the true Sun crosses the meridian.
double SolarDay::culmination(double guess) const {
    double hours = guess - start_.equationOfTime;
    for (int i = 0; i < 2 && moment_ == SunMoment::event; ++i) hours = guess - sunAt(hours).equationOfTime;
    return hours;
}

double SolarDay::altitude(double hours) const {
    const SunPlace sun = sunAt(hours);
    const double hourAngle = 15.0 * (hours - meanNoon_ + sun.equationOfTime);
    return asinDeg(sinDeg(latitude_) * sinDeg(sun.declination) +
                   cosDeg(latitude_) * cosDeg(sun.declination) * cosDeg(hourAngle));
}

double SolarDay::noonAltitude() const {
    return altitude(transit_);
}

double SolarDay::midnightAltitude() const {
    return altitude(culmination(meanNoon_ + 12.0));
}

/// The zero of a function that is positive at noon and negative at midnight: secants within a bracket.
template <typename Excess>
std::optional<double> SolarDay::root(Excess excess, Side side) const {
    double a = transit_, b = culmination(meanNoon_ + (side == Side::morning ? -12.0 : 12.0));
    double fa = excess(a), fb = excess(b);
    if (!(fa >= 0.0) || !(fb <= 0.0)) return std::nullopt;
    int kept = 0;
    for (int i = 0; i < maximumSteps; ++i) {
        const double c = fa == fb ? 0.5 * (a + b) : (a * fb - b * fa) / (fb - fa);
        const double fc = excess(c);
        const double step = fc >= 0.0 ? c - a : c - b;
        if (fc >= 0.0) {
            a = c, fa = fc;
            if (kept == 1) fb *= 0.5;
            kept = 1;
        } else {
            b = c, fb = fc;
            if (kept == -1) fa *= 0.5;
            kept = -1;
        }
        if (std::abs(fc) < 1e-7 || std::abs(b - a) < tolerance || (i > 2 && std::abs(step) < tolerance * 1e-3))
            return c;
    }
    return 0.5 * (a + b);
}

std::optional<double> SolarDay::atAltitude(double target, Side side) const {
    return root([&](double hours) { return altitude(hours) - target; }, side);
}

std::optional<double> SolarDay::atShadow(int factor) const {
    const auto excess = [&](double hours) {
        const double zenithAtNoon = std::abs(latitude_ - sunAt(hours).declination);
        const double target = std::atan(1.0 / (factor + std::tan(zenithAtNoon * radiansPerDegree)));
        return altitude(hours) - target / radiansPerDegree;
    };
    if (std::abs(latitude_ - sunAt(transit_).declination) >= 90.0) return std::nullopt;
    return root(excess, Side::evening);
}

SolarDay SolarDay::shifted(int days) const {
    return {julianDay_ + days, latitude_, longitude_, offset_, moment_};
}

SolarDay SolarDay::atLatitude(double latitude) const {
    return {julianDay_, latitude, longitude_, offset_, moment_};
}

SolarDay SolarDay::at(SunMoment moment) const {
    return {julianDay_, latitude_, longitude_, offset_, moment};
}

}  // namespace quode::conventions
