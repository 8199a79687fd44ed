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

/// A sensor that says what the test says.
struct FakeHeading {
    HeadingSource::Callbacks callbacks;  ///< empty while the readings are not started
    double filter = 0.0;
    int starts = 0, stops = 0;

    bool isStarted() const { return static_cast<bool>(callbacks.reading); }
    void say(double magneticHeading, std::optional<double> accuracy = std::nullopt) {
        callbacks.reading({magneticHeading, accuracy});
    }
};

/// What was asked of a screen keeper.
struct ScreenLog {
    bool isAwake = false;
    int requests = 0;
    bool isAlive = false;
};

/// Compasses on an offscreen screen, in English unless chosen otherwise, with the bundle's own images and packs.
class CompassFixture : public testing::Test {
  protected:
    CompassFixture();

    void useLanguage(int languageId);

    /// The qibla from Istanbul, 151°40' from true north; the declination is a round number.
    static constexpr double istanbul = 208.33;
    std::unique_ptr<CompassView> compass(double qiblaAngle = istanbul, double declination = 5.25);
    std::unique_ptr<CompassView> compass(CompassDevices devices, double qiblaAngle = istanbul,
                                         double declination = 5.25);

    /// Devices that say and note what the fields below hold.
    CompassDevices fakeDevices();

    /// Every text on the screen below a widget, a line each.
    static QString textsOf(const QWidget& widget);

    /// The button with an accessible name; a failure of the test when there is none.
    static QAbstractButton* buttonNamed(const QWidget& widget, const QString& name);

    FakePlatform device;
    std::shared_ptr<FakeHeading> heading = std::make_shared<FakeHeading>();
    std::shared_ptr<ScreenLog> screen = std::make_shared<ScreenLog>();
    DeviceOrientation orientation = DeviceOrientation::portrait;
};

}  // namespace quode::test
