// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <cmath>

#include "astro/MagneticVariation.h"
#include "astro/WorldMagneticModel.h"
#include "astro/angles.h"
#include "astro/truth/comparison.h"

namespace quode::truth {

std::vector<Comparison> magneticComparisons() {
    constexpr double tolerance = 0.1;  // degrees; the two models differ by some hundredths
    constexpr int geodetic = 1, target = 3;
    Comparison c{
        "magnetic declination, 2010 to 2012", "degrees", "World Magnetic Model 2010, test values", tolerance, {}};
    for (const auto& row : rowsOf("magnetic_declination")) {
        MagneticVariation model;
        model.ExtraPSH(row[0], MagneticVariation::mainDegree, MagneticVariation::changeDegree, target,
                       MagneticVariation::modelEpoch);
        model.SHVAL3(geodetic, MagneticVariation::mainDegree, target, row[2], row[3], row[1]);
        model.DIHF(target);
        c.errors.push_back(model.iDeclination() * degreesPerRadian - row[4]);
    }
    Comparison current{"magnetic declination, World Magnetic Model 2025",
                       "degrees",
                       "NOAA NCEI and BGS, test values of the model",
                       0.01,
                       {}};
    for (const auto& row : rowsOf("magnetic_wmm2025")) {
        const auto field = WorldMagneticModel::at(row[0], row[2], row[3], row[1]);
        current.errors.push_back(std::remainder(field.declination - row[5], 360.0));
    }
    return {c, current};
}

}  // namespace quode::truth
