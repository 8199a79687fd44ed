// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The Hijri date by first visibility of the crescent, and the phases of the Moon that it starts from.
#include <cmath>
#include <iostream>
#include <string>

#include "astro/AstroGlobalFuncs.h"
#include "astro/FastAstro.h"
#include "astro/PhaseSeries.h"

namespace quode {
namespace {

// Mecca, whose crescent counts for every place.
constexpr double judgementLatitude = 21.43000030517578;
constexpr double judgementLongitude = 39.83000183105469;

// The crescent is visible from this distance between Moon and Sun on, degrees.
constexpr double visibleElongation = 7.9720001220703125;
constexpr double visibleElongationEnd = 7.98199987411499;
constexpr double visibleAltitude = 7.989999771118164;

// Bounds far above what a real new moon needs: 13 to 20 hours, at most 7 halvings, a few steps of ten days.
constexpr int mostHoursToCrescent = 240;
constexpr int mostHalvings = 60;
constexpr int mostDaysBack = 400;

/// The arguments with constants in single precision; the published ones are in MoonPhases.cpp.
PhaseArguments phaseArguments(double k, double T) {
    const double T2 = T * T, T3 = T2 * T, T4 = T3 * T;
    return {FastAstro::ToDeg(2.5534000396728516 + 29.105356216430664 * k - 2.1800000467919745e-5 * T2 -
                             1.1000000199601345e-7 * T3),
            FastAstro::ToDeg(201.56430053710938 + 385.8169250488281 * k + 0.01074379961937666 * T2 +
                             1.2389999938022811e-5 * T3 - 5.800000124622784e-8 * T4),
            FastAstro::ToDeg(160.71080017089844 + 390.6705017089844 * k - 0.0016340999864041805 * T2 -
                             2.2700000954500865e-6 * T3 + 1.1000000021965661e-8 * T4),
            FastAstro::ToDeg(124.77459716796875 - 1.563755750656128 * k + 0.0020691000390797853 * T2 +
                             2.1500000002561137e-6 * T3),
            1.0 - 0.0025160000659525394 * T - 7.3999999585794285e-6 * T2};
}

/// Julian day of a date's midnight.
double midnightOf(const VAKDate& date, int daysLater = 0) {
    return AstroGlobalFuncs::CalculateJulianDay(date.Years, date.Months, date.Days + daysLater, 0, 0, 0);
}

VAKDate calendarDate(double julianDay) {
    VAKDate date;
    AstroGlobalFuncs::JulianToCalendar(julianDay, date, true);
    return date;
}

/// The year with its elapsed part, every step rounded to single precision.
double decimalYear(const VAKDate& date) {
    return static_cast<float>(date.Years) + static_cast<float>(date.Months) / 12.0f +
           static_cast<float>(date.Days) / 365.0f;
}

/// Sets the half of the year that begins on 6 May or on 8 November, and the day's number in it.
void takeSeason(const VAKDate& date, AllCalendarInfo& info) {
    const int monthAndDay = date.Months * 100 + date.Days;
    const bool beforeSummer = monthAndDay < 506;
    info.isSummerSeason = !beforeSummer && monthAndDay < 1108;
    const VAKDate first = info.isSummerSeason ? VAKDateMake(6, 5, date.Years, 0, 0, 0)
                                              : VAKDateMake(8, 11, beforeSummer ? date.Years - 1 : date.Years, 0, 0, 0);
    info.DayOfSeason = static_cast<int>(midnightOf(date) - midnightOf(first) + 1.0);
}

/// Sets the Rumi date: the Julian calendar's date, 13 days behind, in a year that begins in March, counted from 584.
void takeRumiDate(const VAKDate& date, AllCalendarInfo& info) {
    const VAKDate julian = calendarDate(midnightOf(date, -13));
    const bool beforeMarch = julian.Months < 3;
    info.RumiDay = julian.Days;
    info.RumiMonth = beforeMarch ? julian.Months + 10 : julian.Months - 2;
    info.RumiYear = julian.Years - (beforeMarch ? 585 : 584);
}

/// Near a new moon, the distance between Moon and Sun grows by less than this in an hour, degrees, in the years 1 to 9999.
constexpr double fastestElongation = 0.75;

bool isInCalendarYears(const VAKDate& date) {
    return date.Years >= 1 && date.Years <= 9999;
}

/// The number of hours for which an elongation certainly stays too small to be seen.
int hoursHidden(const VAKDate& date, double elongation) {
    if (!isInCalendarYears(date) || !(elongation <= visibleElongation)) return 0;
    return static_cast<int>((visibleElongation - elongation) / fastestElongation);
}

/// Predicts the elongation within the hour before the crescent is visible by a straight line through two computed
/// values. The error is 0.004 degree at most.
class ElongationForecast {
  public:
    ElongationForecast(const VAKDate& date, double atEnd)
        : isUsable_(isInCalendarYears(date)), high_{60, atEnd}, known_(1) {}

    void add(int minute, double elongation) {
        if (known_ == 1) low_ = {minute, elongation};
        known_ = 2;
    }

    /// The elongation at a minute; nothing when it is not known yet, or too close to the limit of visibility.
    std::optional<double> at(int minute) const {
        constexpr double clearly = 0.008;
        if (!isUsable_ || known_ < 2) return std::nullopt;
        const double slope = (high_.elongation - low_.elongation) / (high_.minute - low_.minute);
        const double elongation = low_.elongation + slope * (minute - low_.minute);
        if (elongation > visibleElongation - clearly && elongation < visibleElongationEnd + clearly)
            return std::nullopt;
        return elongation;
    }

  private:
    struct Point {
        int minute = 0;
        double elongation = 0.0;
    };

    bool isUsable_;
    Point low_, high_;
    int known_;
};

}  // namespace

double FastAstro::MoonPhaze(double decimalYear, int phase) {
    const double lunations = (decimalYear - 2000.0) * 12.368499755859375;
    double k = std::trunc(lunations);
    if (lunations - k < -0.5) k -= 1.0;
    const double T = k / 1236.8499755859375;
    k = static_cast<float>(k) + 0.25f * static_cast<float>(phase);
    const double T2 = T * T, T3 = T2 * T, T4 = T3 * T;
    const double mean = 2451550.0 + 29.530588150024414 * k + 0.0001336999994236976 * T2 - 1.500000053056283e-7 * T3 +
                        7.300000048893196e-10 * T4;
    return mean + (periodicPhaseCorrection(phase, phaseArguments(k, T)) + planetaryPhaseCorrection(k));
}

double FastAstro::elongationOf(VAKDate& date) {
    const double julianDay = AstroGlobalFuncs::JulianDay(date);
    const double elongation = MoonElongation(julianDay);
    AstroGlobalFuncs::JulianToCalendar(julianDay, date, true);
    return elongation;
}

/// Moves the record forward, hour by hour, to the first hour at which the crescent is visible; hours at which it certainly
/// is not are skipped.
/// @return the elongation at that hour; nothing when there is no such hour
std::optional<double> FastAstro::firstVisibleHour(VAKDate& date) {
    double elongation = elongationOf(date);
    int hiddenHours = hoursHidden(date, elongation);
    for (int tried = 1; elongation <= visibleElongation; ++tried) {
        if (tried > mostHoursToCrescent) return std::nullopt;
        ++date.Hours;
        if (hiddenHours-- > 0 && tried < mostHoursToCrescent) {
            date = calendarDate(AstroGlobalFuncs::JulianDay(date));
            continue;
        }
        elongation = elongationOf(date);
        hiddenHours = hoursHidden(date, elongation);
    }
    return elongation;
}

void FastAstro::GetCrescentDate(VAKDate& date) {
    date.Hours += 10;
    date.Minutes = date.Seconds = 0;
    const std::optional<double> visible = firstVisibleHour(date);
    if (!visible) return reportMissingCrescent(date);
    ElongationForecast forecast(date, *visible);
    --date.Hours;
    date.Minutes = 30;
    int low = 0, high = 60;
    for (int halvings = 0; halvings < mostHalvings; ++halvings) {
        const int minute = date.Minutes;
        std::optional<double> elongation;
        if (halvings + 1 < mostHalvings) elongation = forecast.at(minute);
        if (elongation) {
            date = calendarDate(AstroGlobalFuncs::JulianDay(date));
        } else {
            elongation = elongationOf(date);
            if (*elongation >= visibleElongation && *elongation <= visibleElongationEnd) return;
            forecast.add(minute, *elongation);
        }
        (*elongation > visibleElongation ? high : low) = minute;
        date.Minutes = (low + high + 1) / 2;
    }
    reportMissingCrescent(date);
}

void FastAstro::reportMissingCrescent(const VAKDate& date) const {
    const std::string day =
        std::to_string(date.Years) + "-" + std::to_string(date.Months) + "-" + std::to_string(date.Days);
    const std::string message = "Error in FastAstro -> GetCrescentDate: no crescent found up to " + day +
                                "; the last moment looked at is kept.";
    if (log_) {
        log_(message);
    } else {
        std::clog << message << '\n';
    }
}

double FastAstro::monthStartAfterCrescent(const VAKDate& crescent) {
    SunData sun;
    SunRiseSetTrans(crescent, sun);
    VAKDate sunset = crescent;
    AstroGlobalFuncs::ToHMS(sun.SetTime, sunset.Hours, sunset.Minutes, sunset.Seconds);
    DirectionInfo direction;
    MoonInformationForDirectionWithoutLocalTime(sunset, direction);
    const bool seenThatEvening = direction.MoonAltitude >= visibleAltitude && crescent.Hours > 9;
    return midnightOf(crescent, seenThatEvening ? 0 : 1);
}

std::optional<double> FastAstro::monthStartBefore(double newMoon, double day) {
    if (newMoon >= day) return std::nullopt;
    const VAKDate conjunction = calendarDate(newMoon);
    VAKDate crescent = conjunction;
    GetCrescentDate(crescent);
    if (midnightOf(crescent) > day) return std::nullopt;
    if (sameDay(crescent, conjunction)) return midnightOf(crescent, 1);
    const double start = monthStartAfterCrescent(crescent);
    if (start > day) return std::nullopt;
    return start;
}

void FastAstro::RealGregJulToHicriUncorrected(int day, int month, int year, VAKDate& hijri) {
    hijri = AstroGlobalFuncs::GregJulToHicri(day, month, year);
    SetLatLon(judgementLatitude, judgementLongitude);
    const double today = AstroGlobalFuncs::CalculateJulianDay(year, month, day, 0, 0, 0);
    std::optional<double> start;
    double triedNewMoon = 0.0;
    VAKDate searched = calendarDate(today + 10.0);
    for (int daysBack = 0; !start && daysBack <= mostDaysBack; daysBack += 10) {
        const double newMoon = MoonPhaze(decimalYear(searched), 0);
        // Ten days back it is often the same new moon with the same result.
        if (newMoon != triedNewMoon) start = monthStartBefore(newMoon, today);
        triedNewMoon = newMoon;
        searched = calendarDate(today - daysBack);
    }
    if (!start) return;
    const bool tabularMonthIsEnding = hijri.Days >= 28;
    hijri.Days = static_cast<int>(today - *start + 1.0);
    if (hijri.Days >= 3 || !tabularMonthIsEnding) return;
    if (++hijri.Months == 13) {
        hijri.Months = 1;
        ++hijri.Years;
    }
}

void FastAstro::RealGregJulToHicri(int day, int month, int year, VAKDate& hijri) {
    RealGregJulToHicriUncorrected(day, month, year, hijri);
    if (hijri.Days != 30) return;
    const VAKDate yesterday = calendarDate(AstroGlobalFuncs::CalculateJulianDay(year, month, day, 0, 0, 0) - 1.0);
    VAKDate before;
    RealGregJulToHicriUncorrected(yesterday.Days, yesterday.Months, yesterday.Years, before);
    hijri.Months = before.Months;
}

void FastAstro::ConvertAllCalendar(const VAKDate& date, AllCalendarInfo& info) {
    info.GregorianDay = date.Days;
    info.GregorianMonth = date.Months;
    info.GregorianYear = date.Years;
    info.DayOfWeek = AstroGlobalFuncs::DayOfWeek(date.Years, date.Months, date.Days);
    VAKDate hijri;
    RealGregJulToHicri(date.Days, date.Months, date.Years, hijri);
    info.HijriDay = hijri.Days;
    info.HijriMonth = hijri.Months;
    info.HijriYear = hijri.Years;
    takeSeason(date, info);
    takeRumiDate(date, info);
}

}  // namespace quode
