// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/WorldMap.h"

#include <QFile>
#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "texts/translation.h"

namespace quode::window {
namespace {

constexpr double nearest = 32.0, zoomStep = 1.5;
constexpr double unitsPerDegree = 10.0;
constexpr double markRadius = 6.0;

// A line for each outline: "LONGITUDE,LATITUDE LONGITUDE,LATITUDE ...", in tenths of a degree.
QPainterPath readLand(const std::filesystem::path& bundle) {
    QPainterPath land;
    QFile file(QString::fromStdString((bundle / "map/land.txt").string()));
    if (!file.open(QIODevice::ReadOnly)) return land;
    while (!file.atEnd()) {
        QPolygonF outline;
        for (const QByteArray& pair : file.readLine().simplified().split(' ')) {
            const qsizetype comma = pair.indexOf(',');
            if (comma < 0) continue;
            outline << QPointF(pair.left(comma).toInt(), pair.mid(comma + 1).toInt()) / unitsPerDegree;
        }
        land.addPolygon(outline);
    }
    return land;
}

QPointF onEarth(QPointF point) {
    return {std::clamp(point.x(), -180.0, 180.0), std::clamp(point.y(), -90.0, 90.0)};
}

}  // namespace

WorldMap::WorldMap(const std::filesystem::path& bundle, QWidget* parent) : QWidget(parent), land_(readLand(bundle)) {
    setAccessibleName(_("Map of the world"));
    setAccessibleDescription(_("The arrow keys move the point, plus and minus bring it nearer."));
    setToolTip(_("Click to choose a point; the wheel brings it nearer"));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void WorldMap::setPoint(double latitude, double longitude) {
    point_ = {longitude, latitude};
    const QRectF shown = toPixels().inverted().mapRect(QRectF(rect()));
    if (!shown.contains(point_)) middle_ = zoom_ > 1.0 ? point_ : QPointF();
    update();
}

QTransform WorldMap::toPixels() const {
    const double pixels = width() / 360.0 * zoom_;
    return QTransform::fromTranslate(-middle_.x(), -middle_.y()) * QTransform::fromScale(pixels, -pixels) *
           QTransform::fromTranslate(width() / 2.0, height() / 2.0);
}

void WorldMap::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().color(QPalette::AlternateBase));
    const QTransform map = toPixels();
    painter.setPen(QPen(palette().color(QPalette::Dark), 0.7));
    painter.setBrush(palette().color(QPalette::Mid));
    painter.drawPath(map.map(land_));
    const QPointF mark = map.map(point_);
    painter.setBrush(Qt::NoBrush);
    for (const auto& [color, width] :
         {std::pair(palette().color(QPalette::Base), 4.0), std::pair(palette().color(QPalette::WindowText), 2.0)}) {
        painter.setPen(QPen(color, width));
        painter.drawEllipse(mark, markRadius, markRadius);
        painter.drawLine(mark - QPointF(2 * markRadius, 0), mark + QPointF(2 * markRadius, 0));
        painter.drawLine(mark - QPointF(0, 2 * markRadius), mark + QPointF(0, 2 * markRadius));
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2.0));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

void WorldMap::mousePressEvent(QMouseEvent* event) {
    choose(toPixels().inverted().map(event->position()));
}

void WorldMap::wheelEvent(QWheelEvent* event) {
    if (!hasFocus()) return event->ignore();  // the page is scrolled
    zoom(event->angleDelta().y() > 0 ? zoomStep : 1.0 / zoomStep);
    event->accept();
}

void WorldMap::keyPressEvent(QKeyEvent* event) {
    const double step = (event->modifiers().testFlag(Qt::ShiftModifier) ? 10.0 : 2.0) / zoom_;
    switch (event->key()) {
        case Qt::Key_Left:
            return move(-step, 0);
        case Qt::Key_Right:
            return move(step, 0);
        case Qt::Key_Up:
            return move(0, step);
        case Qt::Key_Down:
            return move(0, -step);
        case Qt::Key_Plus:
            return zoom(zoomStep);
        case Qt::Key_Minus:
            return zoom(1.0 / zoomStep);
        default:
            QWidget::keyPressEvent(event);
    }
}

void WorldMap::move(double east, double north) {
    choose(point_ + QPointF(east, north));
}

void WorldMap::zoom(double factor) {
    zoom_ = std::clamp(zoom_ * factor, 1.0, nearest);
    middle_ = zoom_ > 1.0 ? point_ : QPointF();
    update();
}

void WorldMap::choose(QPointF point) {
    point_ = onEarth(point);
    Q_EMIT pointed(point_.y(), point_.x());
    update();
}

}  // namespace quode::window
