// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <span>

namespace quode {

/// Components of the geomagnetic field in nT: to the north, to the east, downward.
struct FieldComponents {
    double north = 0.0, east = 0.0, down = 0.0;
};

/// The Earth's main magnetic field, IGRF-11: the field of 2010.0 with its predicted change, extrapolated without limit.
/// Good to about half a degree of declination around 2010-2015 away from the magnetic poles; the error grows by some
/// tenths of a degree per decade. For current dates use `WorldMagneticModel`. Nothing throws.
///
/// @code
///   quode::MagneticVariation field;
///   const double declination = field.getMagneticVariation(21, 3, 2012, 41.01, 28.95, 100.0);  // day, month, year, ...
///   const double inclination = field.iInclination();                                          // degrees
/// @endcode
///
/// Source: International Geomagnetic Reference Field, 11th generation: C. C. Finlay and others, Geophysical Journal
/// International 183 (2010) 1216; synthesis as in the public-domain geomag program of the US National Geophysical Data
/// Center.
/// Fixed names: all, except the constants, `Coefficients`, `Field`, `fieldAt`, `PlaceTerms`, `termsAt` and `declination`.
class MagneticVariation {
  public:
    static constexpr int mainDegree = 13;   ///< degree and order of the main field
    static constexpr int changeDegree = 8;  ///< degree and order of its change
    static constexpr int coefficientCount = mainDegree * (mainDegree + 2);
    static constexpr double modelEpoch = 2010.0;  ///< decimal year of the coefficients in use
    using Coefficients = std::array<double, coefficientCount>;

    /// Decimal year of a date. A leap year counts as 366 days long only from March on.
    static double Julday(int day, int month, int year);

    /// Degrees, minutes and seconds as decimal degrees; negative when the first of them that is not 0 is negative.
    static double DegreesToDecimal(int degrees, int minutes, int seconds);

    /// Fills a coefficient array: main field plus years times its change.
    /// @param date               decimal year
    /// @param mainFieldDegree    1..13
    /// @param changeFieldDegree  1..8; terms of higher degrees do not change
    /// @param target             3 is `gha`, 4 is `ghb`
    /// @param epoch              of the coefficients: 2010.0, or 2005.0
    void ExtraPSH(double date, int mainFieldDegree, int changeFieldDegree, int target, double epoch);

    /// Computes the field from a coefficient array. Latitudes beyond 89.999 degrees keep the cosine of 89.999.
    /// @param coordinateSystem    1 geodetic (latitude and height above the ellipsoid), else geocentric
    /// @param maximumDegree       1..13
    /// @param target              the array: 3 is `gha`, 4 is `ghb`
    /// @param latitude,longitude  degrees, north and east positive
    /// @param altitude            km above the ellipsoid; geocentric: from the Earth's centre
    /// @return nT to the north, to the east and downward
    FieldComponents SHVAL3(int coordinateSystem, int maximumDegree, int target, double latitude, double longitude,
                           double altitude);

    /// Sets declination and inclination (radians), horizontal and total intensity (nT) from the last synthesis of an
    /// array. An undefined declination (horizontal field below 0.0001 nT) is -1.0.
    /// @param target  3: the fields of the date; 4: the `Temp` fields, one year later
    void DIHF(int target);

    /// The coefficients of a date, for `declination` at many places.
    struct Field {
        Coefficients coefficients{};
    };
    static Field fieldAt(int day, int month, int year);

    /// The part of the synthesis that depends on the place alone, for `declination` on many dates.
    /// @tparam Value  double, or two of them side by side for two places
    template <typename Value>
    struct TermsOf {
        Value cosTilt{}, sinTilt{}, sinLatitude{}, cosLatitude{};
        std::array<Value, 104> P{}, Q{};
        std::array<Value, mainDegree + 1> scales{}, sines{}, cosines{};
    };
    using PlaceTerms = TermsOf<double>;
    /// @param latitude,longitude  degrees, north and east positive
    /// @param altitude            metres
    static PlaceTerms termsAt(double latitude, double longitude, double altitude);

    /// The result of `getMagneticVariation`, without filling fields.
    static double declination(const Field& field, const PlaceTerms& place);

    struct Point {
        double latitude, longitude;  ///< degrees, north and east positive
        double altitude;             ///< metres
    };

    /// The declinations at many places on one date, two at a time: the same bits as one by one, sooner.
    /// @param results  as many as there are places
    static void declinations(const Field& field, std::span<const Point> places, std::span<double> results);

    /// Magnetic declination. Fills all eight fields; `iDeclination` and `iInclination` are then in degrees, the `Temp`
    /// fields in radians. Within 0.05 degree of the World Magnetic Model 2010 from 2010 to 2012 (docs/accuracy.md).
    /// @param latitude,longitude  degrees, north and east positive
    /// @param altitude            metres
    /// @return degrees, positive to the east; -1.0 where it is undefined
    double getMagneticVariation(int day, int month, int year, double latitude, double longitude, double altitude);

    /// The same for coordinates in degrees, minutes and seconds.
    double getMagneticVariation2(int day, int month, int year, int latitudeDegrees, int latitudeMinutes,
                                 int latitudeSeconds, int longitudeDegrees, int longitudeMinutes, int longitudeSeconds,
                                 double altitude);

    const Coefficients& gha() const { return gha_; }                 ///< the field at the date
    const Coefficients& ghb() const { return ghb_; }                 ///< the field one year later
    double iDeclination() const { return now_.declination; }         ///< east positive, see `getMagneticVariation`
    double iInclination() const { return now_.inclination; }         ///< downward
    double iHorizontalIntensity() const { return now_.horizontal; }  ///< nT
    double iTotalIntensity() const { return now_.total; }            ///< nT
    double iDeclinationTemp() const { return nextYear_.declination; }
    double iInclinationTemp() const { return nextYear_.inclination; }
    double iHorizontalIntensityTemp() const { return nextYear_.horizontal; }
    double iTotalIntensityTemp() const { return nextYear_.total; }

  private:
    struct Elements {
        double declination = 0.0, inclination = 0.0, horizontal = 0.0, total = 0.0;
    };

    const FieldComponents& keep(int target, const FieldComponents& field);

    Coefficients gha_{}, ghb_{};
    FieldComponents componentsNow_, componentsNextYear_;
    Elements now_, nextYear_;
};

}  // namespace quode
