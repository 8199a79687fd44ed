// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "astro/Place.h"
#include "astro/PrayTimes.h"
#include "astro/SkyRecords.h"
#include "astro/VAKDate.h"
#include "astro/horizon_forecast.h"
#include "astro/sky_memo.h"

namespace quode {

/// The astronomy engine for one place and one date: Sun, Moon, rise and set, prayer times, and the Hijri date by
/// visibility of the crescent.
///
/// Unless an operation says otherwise: angles are degrees, times of day decimal hours, Julian days in universal time,
/// longitudes positive to the east. A time that does not exist is -1.0 (Sun, prayers) or -1650.0 (Moon). Nothing throws;
/// no result is a NaN or an infinity for latitudes -90..90, longitudes -180..180, zones -14..14 and years 1..9999.
/// Operations pass values through the fields below: use one object from one thread at a time, and a fresh one for each
/// place and day. For the day of a city with its time zone, use `computeCityDay` ("data/city_day.h").
///
/// @code
///   quode::FastAstro engine;
///   engine.SetCurrentDate(21, 3, 2026);                         // the date first: it decides on summer time
///   engine.SetPlace(41.01, 28.95, 3.0, 0, 0, 0, 0, 0, 0.0, 1);  // Istanbul, UTC+3, no summer time, margin of 500 m
///   const quode::PrayTimes& times = engine.CalculatePrayTimes().TodayPrayTimes;
///   if (times.Imsak != quode::missingTime) std::printf("dawn %.4f h, sunset %.4f h\n", times.Imsak, times.Aksam);
/// @endcode
///
/// Many constants are published values rounded to single precision; some steps are taken in single precision. Both are
/// part of the results. Accuracies below are the largest differences in docs/accuracy.md, for the years and latitudes
/// given there.
///
/// Sources, cited below by author: J. Meeus, Astronomical Algorithms (chapters and equations of the 2nd edition; the
/// phases of the Moon with the coefficients of the 1st); O. Montenbruck and T. Pfleger, Astronomy on the Personal
/// Computer; P. Bretagnon and G. Francou, VSOP87 (1988); M. Chapront-Touze and J. Chapront, ELP-2000/82 (1983).
///
/// Fixed names: all public operations and fields, except `setLog`, `share`, `setTimesOnly` and `clearTimes`.
class FastAstro {
  public:
    // ---- place and date ------------------------------------------------------------------------------------------

    /// Sets the observer; the place of `SetPlace` stays as it is.
    /// @param latitude,longitude  degrees, north and east positive
    void SetLatLon(double latitude, double longitude);

    /// Sets the date to compute. Note the order day, month, year; the time of day stays.
    void SetCurrentDate(int day, int month, int year);

    /// Sets the date and time of day to compute.
    void SetCurrentDateTime(const VAKDate& date);

    /// Sets the observer and the place with its clock. Set the date first: it decides whether summer time is in force.
    /// @param latitude,longitude   degrees, north and east positive
    /// @param GMT                  standard offset, hours east of Greenwich; half and quarter hours are kept
    /// @param DST                  1 when the place observes summer time; the rule is then as `IsDSTDay` takes it
    /// @param startMonth,startDay  first day of summer time, see `AstroGlobalFuncs::IsDSTDay`
    /// @param stopMonth,stopDay    first day after summer time
    /// @param DSTValue             size of the shift in hours; `GMTValue` rises by exactly one hour whatever it is
    /// @param temkin               1 for the margin of 500 m height, else that of 250 m
    void SetPlace(double latitude, double longitude, double GMT, int DST, int startMonth, int startDay, int stopMonth,
                  int stopDay, double DSTValue, int temkin);

    /// Turns a local date and time into universal time, by the whole hours of the place's zone and its summer time.
    void SetUniversalTime(VAKDate& date) const;

    /// Turns universal hours of a date into local ones, by the whole hours of the zone and the summer time.
    /// @param time  hours; receives the local hours, not reduced to 0..24. -1.0 stays
    /// @param date  decides on summer time
    void SetLocalTime(double& time, const VAKDate& date) const;

    /// Moves a date and time by a number of days, whole or not.
    static void SetLocalTimeManual(VAKDate& date, double days);

    /// Greenwich mean sidereal time.
    /// @return hours, not reduced; within 0.04 seconds of the published examples
    /// Source: Montenbruck and Pfleger, chapter 3; the IAU 1982 expression, as in Meeus, chapter 12.
    static double GM_Sidereal_Time(double julianDay);

    /// Local mean sidereal time.
    /// @param westLongitude  degrees, positive to the WEST
    /// @return hours, 0 <= x < 24
    static double LM_Sidereal_Time(double julianDay, double westLongitude);

    // ---- Sun -----------------------------------------------------------------------------------------------------

    /// Apparent place of the Sun from its mean elements, good to about 0.01 degree.
    /// Sets `SunDec`, `SunRA` and `EclipticLongitude`.
    /// Source: Meeus, chapter 25, the method of low accuracy, equations (25.2) to (25.8); obliquity by (22.2).
    void SunDecRA(double julianDay);

    /// Apparent place of the Sun from the VSOP87 series of the Earth. Sets `SunDistance`, `SunDec` and `SunRA`.
    /// Good to 0.0012 degree in right ascension and 0.0006 degree in declination from 1975 to 2035.
    /// Source: Meeus, chapter 25, the method of higher accuracy; `EarthCompute`.
    void SunDecRAAccurate(double julianDay);

    /// Mean longitude of the Sun.
    /// @param T  Julian centuries from J2000
    /// @return degrees, 0..360
    /// Source: Meeus, chapter 28, equation (28.2).
    static double SunL(double T);

    /// True obliquity of the ecliptic.
    /// @param T  Julian centuries from J2000
    /// @return degrees; by the source, the nutation in it is good to 0.1 arc second
    /// Source: Meeus, chapter 22, equation (22.2) and the four largest terms of the nutation in obliquity.
    static double Epsilon(double T);

    /// Nutation in longitude.
    /// @param T  Julian centuries from J2000
    /// @return degrees; by the source, good to 0.5 arc second
    /// Source: Meeus, chapter 22, the four largest terms.
    static double DeltaPSI(double T);

    /// Equation of time: apparent less mean time.
    /// @param rightAscension  of the Sun, hours
    /// @return minutes; good to 0.006 minute from 1975 to 2035
    /// Source: Meeus, chapter 28, equation (28.1).
    static double EquationOfTime(double julianDay, double rightAscension);

    /// Altitude of the Sun for the observer, without refraction.
    /// @param declination      degrees
    /// @param hourAngleOffset  hour angle at Greenwich, degrees
    /// @return degrees, -90..90
    /// Source: Meeus, chapter 13, equation (13.6).
    double SunAltitude(double declination, double hourAngleOffset) const;

    /// Azimuth of the Sun for the observer.
    /// @param declination      degrees
    /// @param hourAngleOffset  hour angle at Greenwich, degrees
    /// @param altitude         degrees, from `SunAltitude`
    /// @return degrees clockwise from north, 0..360; -1.0 where there is none (in the zenith, at a pole)
    double SunAzimuth(double declination, double hourAngleOffset, double altitude) const;

    /// Refraction of the atmosphere.
    /// @param altitude  true altitude, degrees
    /// @return degrees; 0 where the formula has no value
    /// Source: Saemundsson (1986), in Meeus, chapter 16, equation (16.4).
    static double Refract(double altitude);

    // ---- rise, set and transit -----------------------------------------------------------------------------------

    /// Sine of the altitude of a body.
    /// @param latitude        degrees, north positive
    /// @param westLongitude   degrees, positive to the WEST
    /// @param declination     degrees
    /// @param rightAscension  hours
    /// Source: Meeus, chapter 13, equation (13.6).
    static double SinElev(double julianDay, double latitude, double westLongitude, double declination,
                          double rightAscension);

    /// Altitude of a body, degrees. Parameters as for `SinElev`.
    static double SunElev(double julianDay, double latitude, double westLongitude, double declination,
                          double rightAscension);

    /// Roots within -1..1 of the parabola through (-1, before), (0, middle) and (1, after). Sets `YE` (extreme value),
    /// `Zero1`, `Zero2` and `DX`. Note the order of the parameters.
    /// @return the number of roots: 0, 1 or 2
    /// Source: Montenbruck and Pfleger, chapter 3.
    int Quad(double before, double after, double middle);

    /// Looks for sunrise and sunset (altitude -50 arc minutes) from one hour before to one hour after an hour.
    /// Sets `UTRise`, `UTSet`, `Rise` and `Sett` for what it finds and leaves the others.
    /// @param hour  universal time; outside 0..23 it counts on the neighbouring day
    /// Source: Montenbruck and Pfleger, chapter 3.
    void RiseSet(int day, int month, int year, int hour);

    /// Looks for sunrise and sunset through the place's civil day.
    /// Sets `UTRise` and `UTSet` (universal time, hours, or -1.0) and the flags `Rise` and `Sett`.
    /// Good to 0.4 minute at latitudes up to 60 degrees.
    void SunRiseSet(int day, int month, int year);

    /// Sunrise, sunset and transit of a date (universal time, hours; -1.0 for a rise or set that does not exist) and
    /// the equation of time (minutes).
    /// @param info  its right ascension `RA` is read; receives `RiseTime`, `TransTime`, `SetTime` and `EquationTime`
    void SunRiseSetTrans(const VAKDate& date, SunData& info);

    // ---- prayer times --------------------------------------------------------------------------------------------

    /// Computes the times of the current date into the place's `TodayPrayTimes`, and the qibla into `KibleAngle`.
    /// Before their margin, times are good to 0.6 minute at latitudes up to 60 degrees.
    /// @return the whole place, as `iPlace` gives it
    const Place& CalculatePrayTimes();

    /// Computes the times of the next day into the place's `NextPrayTimes`, with the zone of the current date.
    void CalculateNextPrayTimes();

    /// Computes the times of a date on the clock of the place, whose `GMTValue` it takes. Changes `SunInfo` and the
    /// fields of the searches; `Lat` and `Lon` must be those of the place.
    /// @param hour,minute,second  not read
    /// @param latitude,longitude  degrees, north and east positive
    /// @param temkin              true: margin for 500 m, else for 250 m
    /// @param zoneHours           not read
    /// @param times               receives the times; only its first flag is cleared beforehand
    /// @param kible               from `KibleAcisi`, for `KibleSun`
    void CalculateAllPrayTimes(int day, int month, int year, int hour, int minute, int second, double latitude,
                               double longitude, bool temkin, int zoneHours, PrayTimes& times, const KiblePair& kible);

    /// Finds the time at which the Sun reaches an altitude, by iteration with the changing declination.
    /// @param result               receives local hours, -1.0 when there are none; not to be used when 0 is returned
    /// @param latitude             degrees, north positive
    /// @param longitudeCorrection  -longitude / 15, hours
    /// @param temkin               margin in hours, signed
    /// @param GMTValue             hours east of Greenwich
    /// @param angle                altitude in whole degrees; 1 and 2 stand for the shadow factors of the afternoon times
    /// @param side                 -1 morning, +1 evening
    /// @param sun                  declination and equation of time at both ends of the day
    /// @return 1 when the altitude is reached, else 0
    /// Source of the hour angle: Meeus, chapter 15, equation (15.1).
    static int Iterasyon(double& result, double latitude, double longitudeCorrection, double temkin, double GMTValue,
                         int angle, int side, const SunInfoForPray& sun);

    /// Declinations, equations of time, sunrises and sunsets around a date, for the observer and the place's zone.
    /// @return the values, also kept as `SunInfo`
    SunInfoForPray SunInformationForPray(int day, int month, int year);

    /// The safety margin for a latitude, interpolated in a table of whole degrees. The table ends at 60 degrees; beyond,
    /// its last row holds.
    /// @param latitude    degrees, north or south
    /// @param height500m  true: for 500 m of height, else for 250 m
    /// @return hours
    static double Temkin(double latitude, bool height500m);

    /// Rounds a time to the minute, in single precision. One second is added, so that a later truncation never falls to
    /// the minute before.
    static void MinuteCorrection(double& time);

    /// A time truncated to whole minutes, in single precision; decimal hours.
    static double TimeToHourDeg(double time);

    /// Adds a shift to the times of the day (slots 0 to 12) that exist, and to `Gece2` and `Gece3`, whether they exist
    /// or not.
    /// @param shift  hours
    static void SetPrayTimesToDSTTimes(PrayTimes& times, double shift);

    /// The sunset-based time of a time: hours since the sunset before.
    /// @param times  `Aksam` is read
    /// @param ezani  not read
    /// @param time   local hours
    /// @return hours, up to 13; -1.0 for times that are no numbers
    static double CalculateEzaniTimes(const PrayTimes& times, double ezani, double time);

    /// Sets `EzaniAksam` to 12 and leaves the other sunset-based slots as they are.
    static void CalculateAllEzaniTimes(PrayTimes& times);

    // ---- qibla ---------------------------------------------------------------------------------------------------

    /// Direction of the Kaaba from a place; see `KiblePair`. On the Kaaba's own meridian the angle is 0.
    /// @param latitude,longitude  degrees, north and east positive
    /// Source: the spherical triangle of place, Kaaba and pole, as in Meeus, chapter 13, equation (13.5).
    static KiblePair KibleAcisi(double latitude, double longitude);

    // ---- Moon position -------------------------------------------------------------------------------------------

    /// Place of the Moon from its largest terms, good to 0.07 degree in the first half of this century.
    /// Sets `L_Moon` (radians, 0 to 2 pi), `B_Moon` (radians), `MoonDec` (degrees), `MoonRA` (hours, 0 <= x < 24) and
    /// `MoonGHA` (degrees, 0..360).
    /// Source: Montenbruck and Pfleger, chapter 3.
    void MoonDecRA(double julianDay);

    /// Place of the Moon from 60 terms each of ELP-2000/82; see `MoonCompute::Moon_Coordinate`. Good to 0.02 degree and
    /// 11 km in the first half of this century. Sets `MoonDec`, `MoonRA`, `MoonGHA` (ranges as with `MoonDecRA`) and
    /// `MoonDist` (km).
    /// Source: Meeus, chapter 47.
    void MoonDecRAAccurate(double julianDay);

    /// Local mean sidereal time. The time of day also enters the slow terms, so the result runs ahead during the day, by
    /// up to 4 minutes; `LM_Sidereal_Time` does not. `MoonGHA`, `MoonTrueAltitude` and `SideRealTime` of the Sun
    /// inherit this.
    /// @param modifiedJulianDay  Julian day less 2400000.5
    /// @param longitude          degrees, positive to the east
    /// @return hours, 0 <= x < 24
    /// Source: Montenbruck and Pfleger, chapter 3.
    static double LMST(double modifiedJulianDay, double longitude);

    /// Local sidereal time at the observer.
    /// @return seconds of time, less than a day from 0; negative before 2000
    /// Source: Meeus, chapter 12, the IAU 1982 expression.
    double MoonSideRealTime(double julianDay) const;

    /// Distance of the Moon from a short series of its parallax, good to 1000 km.
    /// @return km
    static double MoonDistance(double julianDay);

    /// Parallax in altitude of the Moon.
    /// @param altitude  degrees
    /// @param distance  km
    /// @return degrees
    /// Source: Meeus, chapter 40.
    static double MoonParallax(double altitude, double distance);

    /// Geocentric altitude of the Moon at the observer; also kept as `MoonAlt`. Changes what `MoonDecRA` changes.
    /// @return degrees
    double MoonTrueAltitude(double julianDay);

    /// Altitude of the Moon as the observer sees it: less the parallax, plus a sixtieth of what `Refract` gives. Changes
    /// what `MoonDecRA` changes.
    /// @param date  universal time; the parallax is that of its noon
    /// @return degrees
    double MoonAppAltitude(const VAKDate& date);

    /// Sets the observer's geocentric latitude `tLat` (degrees) and radius `trho` (Earth radii) from `Lat`.
    void CalculateTLong();

    /// Adds the diurnal aberration to right ascension and declination; all radians. Needs `CalculateTLong`.
    void DiurnalAberration(double& rightAscension, double& declination, double siderealAngle) const;

    /// Turns geocentric into topocentric coordinates. Does nothing beyond 1758.8 astronomical units, where the parallax
    /// is below 0.005 arc second. Needs `CalculateTLong`.
    /// @param rightAscension,declination  radians; receive the topocentric ones
    /// @param siderealAngle               local sidereal time, radians
    /// @param distance                    astronomical units
    void DiurnalParallax(double& rightAscension, double& declination, double siderealAngle, double distance) const;

    /// Topocentric altitude and azimuth, degrees, of what the record `Moon` holds. Needs `CalculateTLong`.
    void MoonAltitudeAzimuth(double& altitude, double& azimuth) const;

    /// Azimuth of the Moon for the observer.
    /// @param declination         degrees
    /// @param greenwichHourAngle  degrees
    /// @param altitude            degrees
    /// @return degrees clockwise from north, 0..360; -1.0 where there is none (in the zenith, at a pole)
    double MoonAzimuth(double declination, double greenwichHourAngle, double altitude) const;

    /// Radians as degrees, made non-negative.
    static double MoonLambda(double longitudeRad);

    /// Angle between Moon and Sun seen from the Earth's centre. Changes what `MoonDecRA` changes.
    /// @return degrees, 0..180
    double MoonElongation(double julianDay);

    /// Illuminated fraction of the Moon.
    /// @param T  Julian centuries from J2000
    /// @return 0..1; good to 0.004
    /// Source: Meeus, chapter 48, equations (48.1) and (48.4).
    static double Phase(double T);

    /// An angle in degrees reduced to 0..360, with a single-precision step.
    static double ToDeg(double angle);

    /// Greenwich hour angle of the Sun, from a short series of the equation of time.
    /// @param universalTime  hours
    /// @return degrees, not above 360
    static double ComputeGHA(int day, int month, int year, double universalTime);

    // ---- Moon rise, set and information --------------------------------------------------------------------------

    /// Looks for moonrise and moonset from one hour before to one hour after an hour. Sets `MoonRise` and `MoonSet` for
    /// what it finds, as hours of the day that the hour falls on, and leaves the other.
    /// @param hour  universal time; outside 0..23 it counts on the neighbouring day
    /// Source: Montenbruck and Pfleger, chapter 3.
    void MoonRiseSet(int day, int month, int year, int hour);

    /// Sets `MoonRise` (universal hours, or -1650.0) for the place's civil day; may set `MoonSet` too. Good to one
    /// minute.
    void MoonRiseTime(int day, int month, int year);

    /// Sets `MoonSet` (universal hours, or -1650.0) for the place's civil day; may set `MoonRise` too. Good to one
    /// minute.
    void MoonSetTime(int day, int month, int year);

    /// A constant, 25.0166..., for every date; not a transit to show: use `moonTransit` ("astro/MoonTransit.h").
    /// Changes what `MoonTrueAltitude` changes.
    double MoonTransTime(int day, int month, int year);

    /// Sets `RiseTime`, `TransTime` and `SetTime` of a record for a date.
    void MoonRiseSetTrans(const VAKDate& date, MoonInfo& moon);

    /// Everything about the Moon at a universal date and time, seen from a place. Rise, transit and set are those that
    /// the record `Moon` held before. Leaves `Lat` and `Lon` at that place.
    /// @param latitude,longitude  degrees, north and east positive
    MoonInfo MoonInformation(const VAKDate& date, double latitude, double longitude);

    /// Sets the Moon's fields of a direction record, with rise and set in local time. A missing one is -1650.0 moved by
    /// the zone, which stays below -1000.
    void MoonInformationForDirection(const VAKDate& date, DirectionInfo& info);

    /// Sets the Moon's fields of a direction record, with rise and set in universal time.
    void MoonInformationForDirectionWithoutLocalTime(const VAKDate& date, DirectionInfo& info);

    /// Sets the Moon's fields of a crescent record, for a date moved by a number of days.
    void MoonInformationforCrescent(const VAKDate& date, int dayOffset, CrescentInfo& info);

    /// Everything about the Sun at a universal date and time, seen from a place, with rise and set in local time. Leaves
    /// `Lat` and `Lon` at that place.
    /// @param latitude,longitude  degrees, north and east positive
    SunData SunInformation(const VAKDate& date, double latitude, double longitude);

    /// Sets the Sun's fields of a direction record, with rise and set in local time.
    void SunInformationForDirection(const VAKDate& date, DirectionInfo& info);

    /// Sets the Sun's fields of a crescent record, in universal time.
    void SunInformationForCrescent(const VAKDate& date, CrescentInfo& info);

    /// The sky of the current date at the place: sunrise, sunset, moonrise, moonset in local hours, and the Moon's
    /// apparent altitude at sunset. Moonrise and moonset may pass 24, when they fall on the next local day's clock; a
    /// missing one is below -1000. Without sunrise or sunset both stay in universal time and the altitude is -1650.0.
    WidgetSkyInfo getSomeInfoForQuodeWidget();

    // ---- Hijri date by visibility of the crescent ------------------------------------------------------------------

    /// The moment of a phase near a decimal year. The epoch is rounded down by 0.09766 day, so phases come out some 140
    /// minutes early; `moonPhasesBetween` ("astro/MoonPhases.h") gives true ones.
    /// @param phase  0 new, 1 first quarter, 2 full, 3 last quarter
    /// @return Julian Ephemeris Day
    /// Source: Meeus, chapter 49, equations (49.1) to (49.3).
    static double MoonPhaze(double decimalYear, int phase);

    /// Moves the record of a new moon (universal time) forward to the moment at which the Moon stands 7.97 degrees from
    /// the Sun, far enough to be seen; that is 13 to 20 hours later. When there is no such moment within the next days
    /// (the record was not that of a new moon, or lies thousands of years away) the record keeps the last moment tried
    /// and the log gets a message.
    void GetCrescentDate(VAKDate& date);

    /// Hijri date of a Gregorian day by visibility of the crescent at Mecca. Leaves `Lat` and `Lon` at Mecca.
    /// From the year 5500 on new moons and the Moon's place drift apart, and `GetCrescentDate` begins to give up.
    /// @param hijri  receives `Years`, `Months` and `Days` (1..31); before the Hijri era (July 622) month and year are -1
    void RealGregJulToHicri(int day, int month, int year, VAKDate& hijri);

    /// `RealGregJulToHicri` without its correction of the month on a 30th day.
    void RealGregJulToHicriUncorrected(int day, int month, int year, VAKDate& hijri);

    /// The day in the Gregorian, Hijri (by crescent) and Rumi calendars, with its season. Leaves `Lat` and `Lon` at
    /// Mecca.
    void ConvertAllCalendar(const VAKDate& date, AllCalendarInfo& info);

    // ---- use of the engine, names that may change ------------------------------------------------------------------

    /// Sets where messages about abandoned searches go; the standard error log when none is set.
    void setLog(std::function<void(std::string_view)> log) { log_ = std::move(log); }

    /// Shares what does not depend on the place with other engines; nullptr for none. Results do not change.
    /// @param memo  must outlive the engine, or the next call of `share`
    void share(SkyMemo* memo) { shared_ = memo; }

    /// Restricts `CalculatePrayTimes` to the times: it then does not fill `SunInfo` and the fields of the searches for
    /// sunrise and sunset, because it only needs to know that the Sun rises and sets.
    void setTimesOnly(bool only) { timesOnly_ = only; }

    /// Clears the times of the current date, as in a new engine.
    void clearTimes() { iPlace_.TodayPrayTimes = PrayTimes(); }

    // ---- fields --------------------------------------------------------------------------------------------------

    double Lat() const { return Lat_; }  ///< observer, degrees, north positive
    void setLat(double value) { Lat_ = value; }
    double Lon() const { return Lon_; }  ///< observer, degrees, east positive
    void setLon(double value) { Lon_ = value; }
    const VAKDate& iCurrentDate() const { return iCurrentDate_; }  ///< the date to compute
    void setICurrentDate(const VAKDate& value) { iCurrentDate_ = value; }
    const Place& iPlace() const { return iPlace_; }  ///< the place with its times
    void setIPlace(const Place& value) { iPlace_ = value; }

    double SunDec() const { return SunDec_; }  ///< declination of the Sun, degrees
    void setSunDec(double value) { SunDec_ = value; }
    double SunRA() const { return SunRA_; }  ///< right ascension of the Sun, hours
    void setSunRA(double value) { SunRA_ = value; }
    double EclipticLongitude() const { return EclipticLongitude_; }  ///< of the Sun, degrees
    void setEclipticLongitude(double value) { EclipticLongitude_ = value; }
    double SunDistance() const { return SunDistance_; }  ///< astronomical units
    void setSunDistance(double value) { SunDistance_ = value; }

    double YE() const { return YE_; }  ///< extreme value of the parabola of `Quad`
    void setYE(double value) { YE_ = value; }
    double Zero1() const { return Zero1_; }  ///< roots of the parabola, hours from the middle
    void setZero1(double value) { Zero1_ = value; }
    double Zero2() const { return Zero2_; }
    void setZero2(double value) { Zero2_ = value; }
    double DX() const { return DX_; }  ///< half the distance between the roots
    void setDX(double value) { DX_ = value; }
    double UTRise() const { return UTRise_; }  ///< sunrise, universal hours, or -1.0
    void setUTRise(double value) { UTRise_ = value; }
    double UTSet() const { return UTSet_; }  ///< sunset, universal hours, or -1.0
    void setUTSet(double value) { UTSet_ = value; }
    bool Rise() const { return Rise_; }  ///< a sunrise was found
    void setRise(bool value) { Rise_ = value; }
    bool Sett() const { return Sett_; }  ///< a sunset was found
    void setSett(bool value) { Sett_ = value; }
    const SunInfoForPray& SunInfo() const { return SunInfo_; }
    void setSunInfo(const SunInfoForPray& value) { SunInfo_ = value; }

    double tLat() const { return tLat_; }  ///< geocentric latitude, degrees
    void setTLat(double value) { tLat_ = value; }
    double trho() const { return trho_; }  ///< geocentric radius, Earth radii
    void setTrho(double value) { trho_ = value; }
    double MoonDec() const { return MoonDec_; }  ///< declination of the Moon, degrees
    void setMoonDec(double value) { MoonDec_ = value; }
    double MoonRA() const { return MoonRA_; }  ///< right ascension of the Moon, hours
    void setMoonRA(double value) { MoonRA_ = value; }
    double MoonGHA() const { return MoonGHA_; }  ///< Greenwich hour angle of the Moon, degrees
    void setMoonGHA(double value) { MoonGHA_ = value; }
    double MoonDist() const { return MoonDist_; }  ///< km
    void setMoonDist(double value) { MoonDist_ = value; }
    double MoonAlt() const { return MoonAlt_; }  ///< degrees
    void setMoonAlt(double value) { MoonAlt_ = value; }
    double L_Moon() const { return L_Moon_; }  ///< ecliptic longitude, radians
    void setL_Moon(double value) { L_Moon_ = value; }
    double B_Moon() const { return B_Moon_; }  ///< ecliptic latitude, radians
    void setB_Moon(double value) { B_Moon_ = value; }
    double SRT() const { return SRT_; }  ///< local sidereal time, hours
    void setSRT(double value) { SRT_ = value; }
    double MoonRise() const { return MoonRise_; }  ///< universal hours, or -1650.0
    void setMoonRise(double value) { MoonRise_ = value; }
    double MoonSet() const { return MoonSet_; }  ///< universal hours, or -1650.0
    void setMoonSet(double value) { MoonSet_ = value; }
    const MoonInfo& Moon() const { return Moon_; }
    void setMoon(const MoonInfo& value) { Moon_ = value; }
    const SunData& Sun() const { return Sun_; }
    void setSun(const SunData& value) { Sun_ = value; }

  private:
    bool isDSTDate(const VAKDate& date) const;
    void finishMoonCoordinates(double julianDay);
    MoonHour computeMoonHour(double julianDay);
    const MoonHour& moonHour(double julianDay, int hour);
    void takeMoonCoordinates();
    void takeMoonSiderealTime(double julianDay);
    void fillMoonDirection(const VAKDate& date, bool localTime, DirectionInfo& info);
    void takeSunriseAndSunset(const VAKDate& date);
    void takeSunDirection(const VAKDate& date);
    double elongationOf(VAKDate& date);
    std::optional<double> firstVisibleHour(VAKDate& date);
    void reportMissingCrescent(const VAKDate& date) const;
    std::optional<double> monthStartBefore(double newMoon, double day);
    double monthStartAfterCrescent(const VAKDate& crescent);
    const LatitudeTrig& latitudeTrig();
    double meridian();
    SunMoment& sunMoment(double julianDay);
    const SunMidnight& sunMidnight(double midnight);
    double sinElevOfMoon(double julianDay, int part);
    double sinElevOf(double siderealTime, double sinDeclination, double cosDeclination, double rightAscension);
    void searchSunHours(int day, int month, int year, int firstHour, int endHour);
    bool searchSun(int day, int month, int year);
    bool isPlainDay(int day, int month, int year, double declination);
    bool isSureToRiseAndSet(int day, int month, int year);
    HorizonForecast sunForecast(double midnight, int firstHour);
    void finishSunSearch(int day, int month, int year);
    bool readSunForPray(int day, int month, int year);
    void finishSunForPray(int day, int month, int year);
    int firstDayWithAltitude(double midnight, int angle, int from);
    void takeSunSearch(const SunSearch& search);
    std::optional<HorizonForecast> moonForecast(int day, int month, int year);
    void searchMoonHours(int day, int month, int year, const std::optional<HorizonForecast>& forecast, bool forRise);
    void finishMoonSearch(int day, int month, int year, int first, int end);
    void searchMoonRiseAndSet(int day, int month, int year);
    bool risesBeforeItSets(const HorizonForecast& forecast) const;
    void readDailySun(int day, int month, int year, double& declination, double& equationHours);
    void calculateDay(const VAKDate& day, PrayTimes& times);
    void readSunLoweringLatitude(const VAKDate& day, double correction, double temkin, PrayTimes& times);
    double timeOnNearestEarlierDay(const VAKDate& day, double time, int angle, int side, double correction,
                                   double temkin, bool& isEarlier);

    double Lat_ = 0.0, Lon_ = 0.0;
    VAKDate iCurrentDate_;
    Place iPlace_;

    double SunDec_ = 0.0, SunRA_ = 0.0, EclipticLongitude_ = 0.0, SunDistance_ = 0.0;
    double YE_ = 0.0, Zero1_ = 0.0, Zero2_ = 0.0, DX_ = 0.0;
    double UTRise_ = 0.0, UTSet_ = 0.0;
    bool Rise_ = false, Sett_ = false;
    SunInfoForPray SunInfo_;

    double tLat_ = 0.0, trho_ = 0.0;
    double MoonDec_ = 0.0, MoonRA_ = 0.0, MoonGHA_ = 0.0, MoonDist_ = 0.0, MoonAlt_ = 0.0;
    double L_Moon_ = 0.0, B_Moon_ = 0.0, SRT_ = 0.0;
    double MoonRise_ = 0.0, MoonSet_ = 0.0;
    MoonInfo Moon_;
    SunData Sun_;
    std::function<void(std::string_view)> log_;

    // Results kept so that nothing is computed twice; not visible from outside.
    bool timesOnly_ = false;
    SkyMemo* shared_ = nullptr;
    SkyTable<SunMoment, 64> sunMoments_;
    SkyTable<SunMidnight, 4> sunMidnights_;
    SkyTable<SunSearch, 2> sunSearches_;
    SkyTable<MoonHour, 8> moonHours_;
    LatitudeTrig latitudeTrig_;
    Meridian meridian_;
    QiblaPoint qiblaPoint_;
};

}  // namespace quode
