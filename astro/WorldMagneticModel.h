// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// The Earth's magnetic field by the World Magnetic Model 2025, valid from 2025 to 2030. The model gives the declination
/// to about half a degree away from the magnetic poles; the error grows after 2030. The published test values are met
/// within 0.005 degree (docs/accuracy.md). No state; nothing throws.
///
/// @code
///   const auto field = quode::WorldMagneticModel::at(2026.2, 41.01, 28.95, 0.1);  // year, degrees, degrees, km
///   if (field.horizontal >= 2000.0) std::printf("declination %.1f degrees\n", field.declination);
/// @endcode
///
/// Source: A. Chulliat and others, The US/UK World Magnetic Model for 2025-2030; ellipsoid WGS 84.
class WorldMagneticModel {
  public:
    static constexpr const char* name = "WMM2025";
    static constexpr double epoch = 2025.0;    ///< decimal year of the coefficients
    static constexpr double validTo = 2030.0;  ///< not included

    /// Direction of the field: declination to the east and inclination downward, degrees.
    struct Direction {
        double declination = 0.0, inclination = 0.0;
        double horizontal = 0.0;  ///< nT; below 2000 a compass cannot be trusted
    };

    /// The field at a point. At a pole it is that of latitude 89.999.
    /// @param year       decimal; outside the model's years it is extrapolated
    /// @param latitude   degrees, -90..90
    /// @param longitude  degrees, east positive
    /// @param height     km above the ellipsoid
    static Direction at(double year, double latitude, double longitude, double height);

    /// True when the model is valid in a decimal year.
    static bool isValidIn(double year) { return year >= epoch && year < validTo; }
};

}  // namespace quode
