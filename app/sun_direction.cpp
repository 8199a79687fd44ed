// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/sun_direction.h"

#include <cmath>

#include "astro/AstroGlobalFuncs.h"

namespace quode::app {
namespace {

constexpr double hoursPerDay = 24.0, fullCircle = 360.0;

struct SunPlace {
    double altitude = 0.0;
    double azimuth = noDirection;
};

/// The Sun over a place, hour by hour of a local day.
class SunOfDay {
  public:
    SunOfDay(const Site& site, const CityDay& day)
        : midnight_(AstroGlobalFuncs::JulianDay(day.date) - day.GMTValue / hoursPerDay) {
        engine_.SetLatLon(site.latitude, site.longitude);
    }

    SunPlace at(double localHours) {
        const double julianDay = midnight_ + localHours / hoursPerDay;
        VAKDate date;
        AstroGlobalFuncs::JulianToCalendar(julianDay, date, true);
        const double universalHours = AstroGlobalFuncs::frac(julianDay + 0.5) * hoursPerDay;
        engine_.SunDecRAAccurate(julianDay);
        const double declination = engine_.SunDec();
        const double hourAngle = FastAstro::ComputeGHA(date.Days, date.Months, date.Years, universalHours);
        const double altitude = engine_.SunAltitude(declination, hourAngle);
        return {altitude, engine_.SunAzimuth(declination, hourAngle, altitude)};
    }

  private:
    FastAstro engine_;
    double midnight_;
};

}  // namespace

std::optional<double> timeOfSunInDirection(const Site& site, const CityDay& day, double bearing) {
    constexpr int stepsPerHour = 12, halvings = 15;
    constexpr double opposite = 90.0;  // beyond it, a change of sign is the far side of the circle
    SunOfDay sun(site, day);
    const auto off = [&](double hours) { return std::remainder(sun.at(hours).azimuth - bearing, fullCircle); };
    double before = 0.0, offBefore = off(before);
    for (int step = 1; step <= 24 * stepsPerHour; ++step) {
        const double after = static_cast<double>(step) / stepsPerHour, offAfter = off(after);
        const bool isCrossed =
            (offBefore < 0.0) != (offAfter < 0.0) && std::abs(offBefore) < opposite && std::abs(offAfter) < opposite;
        if (isCrossed) {
            double low = before, high = after;
            for (int halving = 0; halving < halvings; ++halving) {
                const double middle = (low + high) / 2.0;
                ((off(middle) < 0.0) == (offBefore < 0.0) ? low : high) = middle;
            }
            if (sun.at(high).altitude > 0.0) return high;
        }
        before = after;
        offBefore = offAfter;
    }
    return std::nullopt;
}

}  // namespace quode::app
