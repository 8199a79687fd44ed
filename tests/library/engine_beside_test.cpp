// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A file that uses the library and the engine itself.
#include <astro/FastAstro.h>
#include <gtest/gtest.h>

#define QUODE_EXPLICIT_VERSION
#include <quode/quode.h>

namespace {

TEST(LibraryBesideTheEngine, HasNamesOfItsOwn) {
    quode::FastAstro engine;
    engine.SetCurrentDate(21, 11, 2026);
    engine.SetPlace(41.0, 29.0, 3.0, 0, 0, 0, 0, 0, 0, 1);
    const quode::Place& place = engine.CalculatePrayTimes();
    const quode::v1::Place point = quode::v1::placeAt(41.0, 29.0, "Europe/Istanbul");
    EXPECT_NEAR(360.0 - place.KibleAngle.K, quode::v1::qibla(point).bearing, 1e-9);
}

}  // namespace
