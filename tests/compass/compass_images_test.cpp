// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The pictures of the dial and the arrow.
#include <gtest/gtest.h>

#include <QImage>
#include <QString>
#include <cmath>
#include <numbers>

#include "tools/compass_images/art.h"

namespace quode {
namespace {

QImage bundled(const std::string& name) {
    return QImage(QString::fromStdString(std::string(QUODE_TEST_BUNDLE) + "/images/" + name));
}

TEST(CompassImages, HaveTheFinestResolutionInTheFileForEveryScreen) {
    EXPECT_EQ(bundled("compass.png").size(), QSize(1168, 1168));
    EXPECT_EQ(bundled("compassArrow.png").size(), QSize(172, 928));
}

TEST(CompassImages, AreTheSameEachTimeTheyAreDrawn) {
    EXPECT_EQ(drawDial(2.0), drawDial(2.0));
    EXPECT_EQ(bundled("compass.png").convertToFormat(QImage::Format_ARGB32),
              drawDial(4.0).convertToFormat(QImage::Format_ARGB32));
    EXPECT_EQ(bundled("compassArrow.png").convertToFormat(QImage::Format_ARGB32),
              drawArrow(4.0).convertToFormat(QImage::Format_ARGB32));
}

TEST(CompassImages, LeaveTheCornersOfTheDialClear) {
    const QImage dial = drawDial(2.0);
    for (const QPoint corner : {QPoint(0, 0), QPoint(583, 0), QPoint(0, 583), QPoint(583, 583)}) {
        EXPECT_EQ(qAlpha(dial.pixel(corner)), 0);
    }
    EXPECT_EQ(qAlpha(dial.pixel(292, 292)), 255);
}

TEST(CompassImages, MarkNorthAloneInRed) {
    const QImage dial = drawDial(2.0);
    const auto colorAtRim = [&](double degrees) {
        const double angle = degrees * std::numbers::pi / 180.0, radius = 292.0 - 16.0;
        return dial.pixelColor(qRound(292.0 + radius * std::sin(angle)), qRound(292.0 - radius * std::cos(angle)));
    };
    EXPECT_GT(colorAtRim(0.0).red(), colorAtRim(0.0).blue() + 100);
    for (int degrees = 10; degrees < 360; degrees += 10) {
        EXPECT_LT(colorAtRim(degrees).red(), colorAtRim(degrees).blue() + 60) << degrees;
    }
}

TEST(CompassImages, PointWithTheArrowsTopAndShowTheKaabaBehindIt) {
    const QImage arrow = drawArrow(4.0);
    const QColor tip = arrow.pixelColor(86 - 12, 80);
    EXPECT_GT(tip.green(), tip.red() + 80);  // the green tip, left of its ridge
    const QColor wall = arrow.pixelColor(86 - 30, 4 * 56);
    EXPECT_LT(wall.lightness(), 60);
    EXPECT_EQ(wall.alpha(), 255);
    const QColor band = arrow.pixelColor(86 - 30, 4 * 33 + 4 * 8 + 4 * 9);
    EXPECT_GT(band.red(), band.blue() + 80);  // gold
    EXPECT_EQ(qAlpha(arrow.pixel(86, 4 * 231)), 0);
}

}  // namespace
}  // namespace quode
