// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The dial and the arrow under the readings of a sensor.
#include "compass/CompassView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QImage>
#include <cmath>
#include <limits>
#include <numbers>

#include "compass/compass_fixture.h"

namespace quode::test {
namespace {

class Compass : public CompassFixture {};

constexpr double degreesPerRadian = 180.0 / std::numbers::pi;

double onCircle(double degrees) {
    return degrees - 360.0 * std::floor(degrees / 360.0);
}

// The directions of the dial's north and of the arrow on the screen, degrees clockwise from the top.
double northOnScreen(const CompassView& view) {
    return onCircle(double(view.dialView()->dialRotation()) * degreesPerRadian);
}
double arrowOnScreen(const CompassView& view) {
    const auto& dial = *view.dialView();
    return onCircle((double(dial.dialRotation()) + double(dial.arrowRotation())) * degreesPerRadian);
}

// The colour of the dial's picture in a direction from its centre, at a fraction of its radius.
QColor colorAt(CompassView& view, double degrees, double radiusPart) {
    const QImage image = view.dialView()->grab().toImage();
    const double radius = view.dialView()->side() / 2.0 * radiusPart * image.devicePixelRatio();
    const double angle = degrees / degreesPerRadian;
    return image.pixelColor(qRound(image.width() / 2.0 + radius * std::sin(angle) - 0.5),
                            qRound(image.height() / 2.0 - radius * std::cos(angle) - 0.5));
}

bool isRed(const QColor& color) {
    return color.red() > color.blue() + 80 && color.red() > color.green() + 60;
}
bool isGreen(const QColor& color) {
    return color.green() > color.red() + 60;
}

struct Turn {
    double magnetic;
    double north;  // on the screen, for a declination of 5.25 degrees in the east
    double arrow;  // likewise, for a qibla of 151.67 degrees from true north
};

constexpr std::array<Turn, 5> turns{{{10.0, 344.75, 136.42},
                                     {100.5, 254.25, 45.92},
                                     {222.25, 132.50, 284.17},
                                     {359.9, 354.85, 146.52},
                                     {0.1, 354.65, 146.32}}};

TEST_F(Compass, TurnsTheDialAgainstTheHeadingAndTheArrowWithIt) {
    const auto view = compass();
    for (const Turn& turn : turns) {
        heading->say(turn.magnetic);
        EXPECT_NEAR(northOnScreen(*view), turn.north, 1e-4) << turn.magnetic;
        EXPECT_NEAR(arrowOnScreen(*view), turn.arrow, 1e-4) << turn.magnetic;
    }
}

TEST_F(Compass, SumsHeadingAndCorrectionsInSinglePrecision) {
    const auto view = compass();
    for (const Turn& turn : turns) {
        heading->say(turn.magnetic);
        const float sum = static_cast<float>(turn.magnetic) + 0.0F + 5.25F;
        EXPECT_EQ(view->compassAngle(), static_cast<float>(double(sum) * -0.017453292519943295));
        EXPECT_EQ(view->dialView()->dialRotation(), view->compassAngle());
        EXPECT_EQ(view->dialView()->arrowRotation(),
                  static_cast<float>(double(static_cast<float>(istanbul)) * -0.017453292519943295));
    }
}

TEST_F(Compass, GoesTheShortWayAcrossNorth) {
    const auto view = compass(istanbul, 0.0);
    heading->say(359.9);
    const double before = northOnScreen(*view);
    heading->say(0.1);
    EXPECT_NEAR(std::remainder(northOnScreen(*view) - before, 360.0), -0.2, 1e-4);
}

TEST_F(Compass, DrawsNorthAndArrowWhereTheyPoint) {
    const auto view = compass();
    for (const Turn& turn : turns) {
        heading->say(turn.magnetic);
        EXPECT_TRUE(isRed(colorAt(*view, turn.north, 0.93))) << turn.magnetic;
        EXPECT_FALSE(isRed(colorAt(*view, turn.north + 180.0, 0.93))) << turn.magnetic;
        EXPECT_TRUE(isGreen(colorAt(*view, turn.arrow, 0.72))) << turn.magnetic;
        EXPECT_FALSE(isGreen(colorAt(*view, turn.arrow + 180.0, 0.72))) << turn.magnetic;
    }
}

TEST_F(Compass, TakesEastDeclinationAsEastOfNorth) {
    // A needle that points 10 degrees east of true north: its direction is 10 degrees.
    const auto east = compass(0.0, 10.0);
    heading->say(0.0);
    EXPECT_NEAR(northOnScreen(*east), 350.0, 1e-4);

    const auto west = compass(0.0, -10.0);
    heading->say(0.0);
    EXPECT_NEAR(northOnScreen(*west), 10.0, 1e-4);
}

TEST_F(Compass, TakesQiblaAnglesOfBothSigns) {
    const auto delhi = compass(-266.63, 0.0);
    EXPECT_NEAR(arrowOnScreen(*delhi), 266.63, 1e-4);
    const auto newYork = compass(-58.49, 0.0);
    EXPECT_NEAR(arrowOnScreen(*newYork), 58.49, 1e-4);
}

TEST_F(Compass, PointsTheArrowFromTheStartWithNorthUp) {
    const auto view = compass();
    EXPECT_EQ(view->compassAngle(), 0.0F);
    EXPECT_NEAR(northOnScreen(*view), 0.0, 1e-9);
    EXPECT_NEAR(arrowOnScreen(*view), 151.67, 1e-4);
}

TEST_F(Compass, AsksTheSensorForChangesOfADegree) {
    const auto view = compass();
    EXPECT_EQ(heading->starts, 1);
    EXPECT_EQ(heading->filter, 1.0);
}

TEST_F(Compass, AcceptsAReadingOfUnknownAccuracyAndOneOfPositiveAccuracy) {
    const auto view = compass(istanbul, 0.0);
    heading->say(30.0, std::nullopt);
    EXPECT_NEAR(northOnScreen(*view), 330.0, 1e-4);
    heading->say(60.0, 0.5);
    EXPECT_NEAR(northOnScreen(*view), 300.0, 1e-4);
    heading->say(90.0, 180.0);
    EXPECT_NEAR(northOnScreen(*view), 270.0, 1e-4);
}

TEST_F(Compass, MovesNothingForAReadingThatFailedOrCannotBeTrusted) {
    const auto view = compass();
    heading->say(100.0);
    const auto dial = view->dialView()->grab().toImage();
    const float angle = view->compassAngle();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const std::vector<HeadingReading> refused{{200.0, 0.0},         {200.0, -1.0},        {200.0, nan},
                                              {-1.0, std::nullopt}, {-0.5, 10.0},         {nan, std::nullopt},
                                              {infinity, 5.0},      {360.5, std::nullopt}};
    for (const HeadingReading& reading : refused) {
        heading->callbacks.reading(reading);
        EXPECT_EQ(view->compassAngle(), angle) << reading.magneticHeading;
        EXPECT_EQ(view->dialView()->grab().toImage(), dial) << reading.magneticHeading;
    }
}

TEST_F(Compass, AsksForCalibrationWhileTheSensorDoesNotKnow) {
    const auto view = compass();
    EXPECT_TRUE(view->locationManagerShouldDisplayHeadingCalibration());
    heading->say(-1.0);
    EXPECT_THAT(textsOf(*view).toStdString(), testing::HasSubstr("figure of eight"));
    heading->say(15.0);
    EXPECT_THAT(textsOf(*view).toStdString(), testing::Not(testing::HasSubstr("figure of eight")));
}

TEST_F(Compass, CorrectsForTheWayTheDeviceIsHeld) {
    const auto view = compass(istanbul, 0.0);
    heading->say(20.0);
    const std::array<std::pair<DeviceOrientation, float>, 4> corrections{{{DeviceOrientation::upsideDown, 180.0F},
                                                                          {DeviceOrientation::landscapeLeft, 90.0F},
                                                                          {DeviceOrientation::landscapeRight, -90.0F},
                                                                          {DeviceOrientation::portrait, 0.0F}}};
    for (const auto& [held, correction] : corrections) {
        orientation = held;
        view->updateDisplay();
        EXPECT_EQ(view->fixAngle(), correction);
        EXPECT_NEAR(northOnScreen(*view), onCircle(-20.0 - double(correction)), 1e-4);
        heading->say(21.5);
        EXPECT_NEAR(northOnScreen(*view), onCircle(-21.5 - double(correction)), 1e-4);
        heading->say(20.0);
    }
}

TEST_F(Compass, KeepsTheCorrectionInAnOrientationThatIsNotKnown) {
    const auto view = compass();
    orientation = DeviceOrientation::landscapeLeft;
    view->updateDisplay();
    orientation = DeviceOrientation::unknown;
    view->updateDisplay();
    EXPECT_EQ(view->fixAngle(), 90.0F);
}

TEST_F(Compass, HasTheSizeOfThePhoneOrOfTheTablet) {
    const auto onPhone = compass();
    EXPECT_EQ(onPhone->dialView()->side(), 292.0);
    EXPECT_EQ(onPhone->dialView()->arrowSize(), QSizeF(43.0, 232.0));
    EXPECT_EQ(onPhone->dialView()->tag(), 10000);
    EXPECT_EQ(CompassDialView::arrowTag, 10001);

    device.device->kind = Idiom::tablet;
    GlobalFuncs::startUp(device.platform()).setApplicationBundlePath(QUODE_TEST_BUNDLE);
    const auto onTablet = compass();
    EXPECT_EQ(onTablet->dialView()->side(), 584.0);
    EXPECT_EQ(onTablet->dialView()->arrowSize(), QSizeF(86.0, 464.0));
}

TEST_F(Compass, StandsInTheMiddleOfTheScreen) {
    const auto view = compass();
    const Rect& bounds = device.device->bounds;
    EXPECT_EQ(view->dialView()->center(), QPointF(bounds.width / 2.0, bounds.height / 2.0));
    EXPECT_EQ(view->frame(), bounds);
}

TEST_F(Compass, IsADialToAssistiveTechnologyThatOnlyTheSensorTurns) {
    const auto view = compass(istanbul, 0.0);
    heading->say(100.75);
    auto* accessible = QAccessible::queryAccessibleInterface(view->dialView());
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Dial);
    EXPECT_TRUE(accessible->state().readOnly);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Qibla compass. Qibla : 151°40' from true north");
    EXPECT_THAT(accessible->text(QAccessible::Description).toStdString(),
                testing::HasSubstr("Top of the screen : 101°"));
    auto* value = accessible->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_NEAR(value->currentValue().toDouble(), 100.75, 1e-4);
    value->setCurrentValue(10.0);
    EXPECT_NEAR(value->currentValue().toDouble(), 100.75, 1e-4);
}

}  // namespace
}  // namespace quode::test
