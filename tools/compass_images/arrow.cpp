// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include "tools/compass_images/art.h"

namespace quode {
namespace {

constexpr double middle = arrowWidth / 2.0;
constexpr double hub = arrowHeight / 2.0;

const QColor green(0x3f, 0xd8, 0x9b);
const QColor darkGreen(0x1c, 0x9a, 0x6a);
const QColor outline(0x06, 0x1a, 0x14);
const QColor gold(0xf2, 0xc8, 0x54);
const QColor grey(0xa9, 0xb7, 0xb9);
const QColor darkGrey(0x6d, 0x7e, 0x82);

QPolygonF polygon(std::initializer_list<QPointF> points) {
    return QPolygonF(QList<QPointF>(points));
}

// A shape that is symmetric about the arrow's axis: its left half light, its right half dark, a thin dark outline.
void drawFacets(QPainter& painter, const QList<QPointF>& leftEdge, const QColor& light, const QColor& dark) {
    QPolygonF left, right;
    for (const QPointF& point : leftEdge) {
        left << QPointF(middle - point.x(), point.y());
        right << QPointF(middle + point.x(), point.y());
    }
    QPolygonF whole = left;
    for (auto point = right.crbegin(); point != right.crend(); ++point) whole << *point;
    painter.setPen(QPen(outline, 1.6, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolygon(whole);
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawPolygon(left);
    painter.setBrush(dark);
    painter.drawPolygon(right);
}

// Each entry of an edge is the distance from the axis and the height.
void drawTip(QPainter& painter) {
    drawFacets(painter, {{0.0, 1.5}, {14.5, 31.0}, {0.0, 24.5}}, green, darkGreen);
}

void drawShaft(QPainter& painter) {
    drawFacets(painter, {{0.0, 72.0}, {2.6, 74.0}, {5.4, hub}, {0.0, hub}}, green, darkGreen);
}

void drawTail(QPainter& painter) {
    drawFacets(painter, {{0.0, hub}, {5.4, hub}, {1.6, arrowHeight - 46.0}, {0.0, arrowHeight - 44.0}}, grey, darkGrey);
}

void drawHub(QPainter& painter) {
    painter.setPen(QPen(outline, 1.4));
    painter.setBrush(gold);
    painter.drawEllipse(QPointF(middle, hub), 8.0, 8.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x3a, 0x2c, 0x0c));
    painter.drawEllipse(QPointF(middle, hub), 3.0, 3.0);
}

// The part of a side wall between two heights; 0 is the wall's top, 1 its foot.
QPolygonF wallBand(QPointF topLeft, QPointF topRight, double height, double from, double to) {
    const QPointF down(0.0, height);
    return polygon({topLeft + down * from, topRight + down * from, topRight + down * to, topLeft + down * to});
}

// The Kaaba as a cube seen from a corner: black walls, the golden band near the top, the golden door.
void drawKaaba(QPainter& painter) {
    constexpr double half = 14.5, rise = 5.6, top = 33.0, height = 26.0;
    const QPointF back(middle, top), left(middle - half, top + rise), right(middle + half, top + rise);
    const QPointF front(middle, top + 2.0 * rise);
    const QPointF down(0.0, height);

    painter.setPen(QPen(QColor(0xf4, 0xee, 0xdc), 2.4, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolygon(polygon({back, right, right + down, front + down, left + down, left}));

    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x2b, 0x2b, 0x30));
    painter.drawPolygon(wallBand(left, front, height, 0.0, 1.0));
    painter.setBrush(QColor(0x12, 0x12, 0x15));
    painter.drawPolygon(wallBand(front, right, height, 0.0, 1.0));
    painter.setBrush(QColor(0x4b, 0x4b, 0x52));
    painter.drawPolygon(polygon({back, right, front, left}));

    painter.setBrush(gold);
    painter.drawPolygon(wallBand(left, front, height, 0.20, 0.36));
    painter.setBrush(gold.darker(125));
    painter.drawPolygon(wallBand(front, right, height, 0.20, 0.36));

    const QPointF doorLeft = front + (right - front) * 0.34, doorRight = front + (right - front) * 0.66;
    painter.setBrush(gold);
    painter.drawPolygon(wallBand(doorLeft, doorRight, height, 0.52, 0.90));
}

}  // namespace

QImage drawArrow(double scale) {
    QImage image(qRound(arrowWidth * scale), qRound(arrowHeight * scale), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    drawTail(painter);
    drawShaft(painter);
    drawHub(painter);
    drawTip(painter);
    drawKaaba(painter);
    return image;
}

}  // namespace quode
