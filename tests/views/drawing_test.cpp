// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/drawing.h"

#include <gtest/gtest.h>

namespace quode::test {
namespace {

// Left half red, right half blue; the upper left pixel is green.
QImage sample(int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) image.setPixelColor(x, y, x < width / 2 ? Qt::red : Qt::blue);
    }
    image.setPixelColor(0, 0, Qt::green);
    return image;
}

TEST(RoundedRectangle, IsAClosedPathWithRoundCorners) {
    QPainterPath path;
    drawRoundedRectangle(path, {10.0, 20.0, 40.0, 30.0}, 3.0);
    EXPECT_EQ(QRectF(10.0, 20.0, 40.0, 30.0), path.boundingRect());
    EXPECT_EQ(QPointF(10.0, 35.0), QPointF(path.elementAt(0)));
    EXPECT_EQ(QPointF(10.0, 35.0), path.currentPosition());
    for (const QPointF corner : {QPointF(10.5, 20.5), QPointF(49.5, 20.5), QPointF(49.5, 49.5), QPointF(10.5, 49.5)}) {
        EXPECT_FALSE(path.contains(corner));
    }
    EXPECT_TRUE(path.contains(QPointF(11.5, 21.5)));
}

TEST(RoundedRectangle, TakesNoLargerRadiusThanFits) {
    QPainterPath path;
    drawRoundedRectangle(path, {0.0, 0.0, 40.0, 10.0}, 100.0);
    EXPECT_EQ(QRectF(0.0, 0.0, 40.0, 10.0), path.boundingRect());
    QPainterPath square;
    drawRoundedRectangle(square, {0.0, 0.0, 40.0, 10.0}, 0.0);
    EXPECT_TRUE(square.contains(QPointF(0.1, 0.1)));
}

TEST(RotatedImage, TurnsClockwiseAndFitsTheTurnedRectangle) {
    const QImage turned = imageRotatedByDegrees(90.0, sample(20, 10), {20.0, 10.0});
    EXPECT_EQ(QSize(10, 20), turned.size());
    EXPECT_EQ(QColor(Qt::red), turned.pixelColor(5, 2));    // the left is now above
    EXPECT_EQ(QColor(Qt::blue), turned.pixelColor(5, 17));  // the right is now below
    EXPECT_EQ(QColor(Qt::green), turned.pixelColor(9, 0));  // the upper left is now the upper right
}

TEST(RotatedImage, GrowsByTheDiagonalAndIsClearAround) {
    const QImage turned = imageRotatedByDegrees(45.0, sample(20, 20), {20.0, 20.0});
    EXPECT_EQ(QSize(29, 29), turned.size());
    EXPECT_EQ(0, qAlpha(turned.pixel(0, 0)));
    EXPECT_EQ(255, qAlpha(turned.pixel(14, 14)));
}

TEST(RotatedImage, IsUnchangedByNoTurnOrAWholeOne) {
    const QImage image = sample(20, 10);
    EXPECT_EQ(image, imageRotatedByDegrees(0.0, image, {20.0, 10.0}));
    EXPECT_EQ(QSize(20, 10), imageRotatedByDegrees(360.0, image, {20.0, 10.0}).size());
    EXPECT_EQ(QSize(20, 10), imageRotatedByDegrees(-180.0, image, {20.0, 10.0}).size());
}

TEST(RotatedImage, KeepsTheResolutionOfTheImage) {
    QImage image = sample(40, 20);
    image.setDevicePixelRatio(2.0);
    const QImage turned = imageRotatedByDegrees(90.0, image, {20.0, 10.0});
    EXPECT_EQ(QSize(20, 40), turned.size());
    EXPECT_EQ(2.0, turned.devicePixelRatio());
}

TEST(FlippedImage, IsMirroredLeftToRight) {
    const QImage flipped = flippedImageByAxis(sample(20, 10), {20.0, 10.0});
    EXPECT_EQ(QSize(20, 10), flipped.size());
    EXPECT_EQ(QColor(Qt::blue), flipped.pixelColor(2, 5));
    EXPECT_EQ(QColor(Qt::red), flipped.pixelColor(17, 5));
    EXPECT_EQ(QColor(Qt::green), flipped.pixelColor(19, 0));
}

TEST(FlippedImage, IsDrawnInTheSizeAskedFor) {
    EXPECT_EQ(QSize(40, 40), flippedImageByAxis(sample(20, 10), {40.0, 40.0}).size());
}

}  // namespace
}  // namespace quode::test
