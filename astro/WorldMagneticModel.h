// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// The Earth's magnetic field by the World Magnetic Model 2025, valid from 2025 to 2030. Good to about half a degree of
/// declination away from the magnetic poles; the error grows after 2030.
/// Source: Chulliat and others, The US/UK World Magnetic Model for 2025-2030; ellipsoid WGS 84.
class WorldMagneticModel {
  public:
    static constexpr const char* name = "WMM2025";
    static constexpr double epoch = 2025.0;    ///< decimal year of the coefficients
    static constexpr double validTo = 2030.0;  ///< a new model takes over then

    /// Direction of the field: declination to the east and inclination downward, degrees.
    struct Direction {
        double declination = 0.0, inclination = 0.0;
        double horizontal = 0.0;  ///< nT; below 2000 a compass cannot be trusted
    };

    /// year  decimal; latitude -90..90 and longitude in degrees, height in km over the ellipsoid. At a pole the field
    /// is that of a point nearby.
    static Direction at(double year, double latitude, double longitude, double height);

    /// Whether the model is meant for a decimal year.
    static bool isValidIn(double year) { return year >= epoch && year < validTo; }
};

}  // namespace quode
