// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <memory>
#include <string>

#include "common/GlobalFuncs.h"
#include "compass/CompassView.h"
#include "support/fake_platform.h"

class QAbstractButton;

namespace quode::test {

/// A sensor with readings from the test.
struct FakeHeading {
    HeadingSource::Callbacks callbacks;  ///< empty before the readings start
    double filter = 0.0;
    int starts = 0, stops = 0;

    bool isStarted() const { return static_cast<bool>(callbacks.reading); }
    void say(double magneticHeading, std::optional<double> accuracy = std::nullopt) {
        callbacks.reading({magneticHeading, accuracy});
    }
};

/// The calls of a screen keeper.
struct ScreenLog {
    bool isAwake = false;
    int requests = 0;
    bool isAlive = false;
};

/// Compasses on an offscreen screen, in English by default, with the bundle's images and packs.
class CompassFixture : public testing::Test {
  protected:
    CompassFixture();

    void useLanguage(int languageId);

    /// The qibla from Istanbul, 151°40' from true north; the declination is a round number.
    static constexpr double istanbul = 208.33;
    std::unique_ptr<CompassView> compass(double qiblaAngle = istanbul, double declination = 5.25);
    std::unique_ptr<CompassView> compass(CompassDevices devices, double qiblaAngle = istanbul,
                                         double declination = 5.25);

    /// Devices that use and set the fields below.
    CompassDevices fakeDevices();

    /// All visible texts in a widget, one line each.
    static QString textsOf(const QWidget& widget);

    /// The button with an accessible name; without one the test fails.
    static QAbstractButton* buttonNamed(const QWidget& widget, const QString& name);

    FakePlatform device;
    std::shared_ptr<FakeHeading> heading = std::make_shared<FakeHeading>();
    std::shared_ptr<ScreenLog> screen = std::make_shared<ScreenLog>();
    DeviceOrientation orientation = DeviceOrientation::portrait;
};

}  // namespace quode::test
