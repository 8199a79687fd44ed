// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <QConicalGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include "tools/compass_images/art.h"

namespace quode {
namespace {

constexpr double radius = dialSide / 2.0;

const QColor faceCentre(0x1d, 0x3f, 0x4b);
const QColor faceEdge(0x0b, 0x1c, 0x26);
const QColor bezelLight(0xd9, 0xc1, 0x8a);
const QColor bezelDark(0x7a, 0x62, 0x36);
const QColor ivory(0xf4, 0xee, 0xdc);
const QColor northRed(0xff, 0x6b, 0x4a);

void fillDisc(QPainter& painter, double discRadius, const QBrush& brush) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawEllipse(QPointF(0.0, 0.0), discRadius, discRadius);
}

void drawBezel(QPainter& painter) {
    QConicalGradient metal(0.0, 0.0, 60.0);
    for (const double at : {0.0, 0.5, 1.0}) metal.setColorAt(at, bezelLight);
    for (const double at : {0.25, 0.75}) metal.setColorAt(at, bezelDark);
    fillDisc(painter, radius - 0.5, QColor(0, 0, 0, 120));
    fillDisc(painter, radius - 1.0, metal);
    fillDisc(painter, radius - 3.6, QColor(0x05, 0x10, 0x17));
}

void drawFace(QPainter& painter) {
    QRadialGradient shade(0.0, 0.0, radius - 4.4);
    shade.setColorAt(0.0, faceCentre);
    shade.setColorAt(0.72, QColor(0x14, 0x2e, 0x39));
    shade.setColorAt(1.0, faceEdge);
    fillDisc(painter, radius - 4.4, shade);
}

// One line of the scale, from the rim inwards.
struct Tick {
    double length, width;
    int opacity;
};

Tick tickAt(int degrees) {
    if (degrees % 90 == 0) return {6.5, 2.4, 255};  // leaves room for its letter
    if (degrees % 30 == 0) return {9.5, 1.5, 255};
    if (degrees % 10 == 0) return {7.0, 1.0, 220};
    return {4.0, 0.7, 140};
}

void drawScale(QPainter& painter) {
    constexpr double rim = radius - 6.5;
    constexpr int step = 2;
    for (int degrees = step; degrees < 360; degrees += step) {  // north has its marker
        const Tick tick = tickAt(degrees);
        QColor color = ivory;
        color.setAlpha(tick.opacity);
        painter.save();
        painter.rotate(degrees);
        painter.setPen(QPen(color, tick.width, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(0.0, -rim), QPointF(0.0, -rim + tick.length));
        painter.restore();
    }
}

// The marker stands on the rim, where neither the letters nor the arrow reach.
void drawNorthMarker(QPainter& painter) {
    QPainterPath marker(QPointF(0.0, -radius + 13.0));
    marker.lineTo(-7.5, -radius + 4.6);
    marker.lineTo(7.5, -radius + 4.6);
    marker.closeSubpath();
    painter.setPen(QPen(faceEdge, 1.0));
    painter.setBrush(northRed);
    painter.drawPath(marker);
}

// One point of the rose, with a light and a dark half.
void drawRosePoint(QPainter& painter, double length, double halfWidth, const QColor& light, const QColor& dark) {
    painter.setPen(Qt::NoPen);
    for (const int side : {-1, 1}) {
        QPainterPath half(QPointF(0.0, 0.0));
        half.lineTo(0.0, -length);
        half.lineTo(side * halfWidth, -halfWidth);
        half.closeSubpath();
        painter.setBrush(side < 0 ? light : dark);
        painter.drawPath(half);
    }
}

void drawRose(QPainter& painter) {
    painter.setPen(QPen(QColor(244, 238, 220, 46), 0.8));
    painter.setBrush(Qt::NoBrush);
    for (const double circle : {radius * 0.40, radius * 0.775}) painter.drawEllipse(QPointF(0, 0), circle, circle);

    for (int quarter = 0; quarter < 4; ++quarter) {
        painter.save();
        painter.rotate(45.0 + 90.0 * quarter);
        drawRosePoint(painter, radius * 0.40, radius * 0.075, QColor(244, 238, 220, 44), QColor(244, 238, 220, 22));
        painter.restore();
    }
    for (int quarter = 0; quarter < 4; ++quarter) {
        painter.save();
        painter.rotate(90.0 * quarter);
        drawRosePoint(painter, radius * 0.72, radius * 0.095, QColor(244, 238, 220, 84), QColor(244, 238, 220, 40));
        painter.restore();
    }
}

}  // namespace

QImage drawDial(double scale) {
    const int side = qRound(dialSide * scale);
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.translate(radius, radius);
    drawBezel(painter);
    drawFace(painter);
    drawRose(painter);
    drawScale(painter);
    drawNorthMarker(painter);
    return image;
}

}  // namespace quode
