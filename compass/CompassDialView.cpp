// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "compass/CompassDialView.h"

#include <QFocusEvent>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <numbers>

#include "compass/dial_accessibility.h"

namespace quode {
namespace {

// The arrow's size relative to the dial's side, 43 by 232 on 292.
constexpr double arrowWidthPart = 43.0 / 292.0;
constexpr double arrowHeightPart = 232.0 / 292.0;

// The letters stand between the arrow's tip and the ticks.
constexpr double letterRadiusPart = 0.856;
constexpr double letterSizePart = 0.053;

// Room around the dial for the largest scale of its appearance, which is 1.1, and for the focus ring.
constexpr double roomPart = 1.12;
constexpr double focusRingWidth = 3.0;

const QColor letterColor(0xf4, 0xee, 0xdc);
const QColor northColor(0xff, 0x85, 0x66);

constexpr double degreesPerRadian = 180.0 / std::numbers::pi;

QPixmap pictureOf(const std::string& path, QSizeF size, double resolution) {
    const QImage image(QString::fromStdString(path));
    if (image.isNull()) return {};
    const QImage fitting = image.scaled((size * resolution).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return QPixmap::fromImage(fitting);
}

void drawCentered(QPainter& painter, const QPixmap& picture, QSizeF size) {
    if (picture.isNull()) return;
    const QRectF target(-size.width() / 2.0, -size.height() / 2.0, size.width(), size.height());
    painter.drawPixmap(target, picture, QRectF(picture.rect()));
}

}  // namespace

CompassDialView::CompassDialView(double side, const CompassImages& images, QWidget* parent)
    : QWidget(parent), side_(side), images_(images) {
    installDialAccessibility();
    setFocusPolicy(Qt::StrongFocus);
    setCenter({side / 2.0, side / 2.0});
}

QSizeF CompassDialView::arrowSize() const {
    return {side_ * arrowWidthPart, side_ * arrowHeightPart};
}

void CompassDialView::setCenter(QPointF center) {
    center_ = center;
    const double half = side_ * roomPart / 2.0;
    setGeometry(QRectF(center.x() - half, center.y() - half, 2.0 * half, 2.0 * half).toAlignedRect());
    update();
}

void CompassDialView::setDialRotation(float radians) {
    dialRotation_ = radians;
    update();
}

void CompassDialView::setArrowRotation(float radians) {
    arrowRotation_ = radians;
    update();
}

double CompassDialView::heading() const {
    const double rest = std::fmod(-static_cast<double>(dialRotation_) * degreesPerRadian, 360.0);
    return rest < 0.0 ? rest + 360.0 : rest;
}

void CompassDialView::setScale(double scale) {
    scale_ = scale;
    update();
}

void CompassDialView::setAlpha(double alpha) {
    alpha_ = alpha;
    update();
}

void CompassDialView::setLetters(const std::array<std::string, 4>& letters, const QString& fontName) {
    QFont font;
    font.setFamilies({fontName, QStringLiteral("DejaVu Sans")});
    font.setBold(true);
    font.setPixelSize(qRound(side_ * letterSizePart));
    const QFontMetricsF metrics(font);
    for (std::size_t i = 0; i < letters.size(); ++i) {
        const QString letter = QString::fromStdString(letters[i]);
        letters_[i] = QPainterPath();
        letters_[i].addText(-metrics.horizontalAdvance(letter) / 2.0, metrics.capHeight() / 2.0, font, letter);
    }
    update();
}

void CompassDialView::setTurnsByHand(bool value) {
    turnsByHand_ = value;
    setCursor(value ? Qt::OpenHandCursor : Qt::ArrowCursor);
}

void CompassDialView::paintEvent(QPaintEvent*) {
    preparePictures();
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setOpacity(alpha_);
    painter.translate(center_ - QPointF(pos()));
    painter.scale(scale_, scale_);
    if (showsFocus_) drawFocusRing(painter);
    drawPictures(painter);
}

void CompassDialView::preparePictures() {
    const double resolution = devicePixelRatioF();
    if (resolution == preparedResolution_) return;
    preparedResolution_ = resolution;
    dial_ = pictureOf(images_.dial, {side_, side_}, resolution);
    arrow_ = pictureOf(images_.arrow, arrowSize(), resolution);
}

void CompassDialView::drawPictures(QPainter& painter) {
    painter.save();
    painter.rotate(static_cast<double>(dialRotation_) * degreesPerRadian);
    drawCentered(painter, dial_, {side_, side_});
    drawLetters(painter);
    painter.rotate(static_cast<double>(arrowRotation_) * degreesPerRadian);
    drawCentered(painter, arrow_, arrowSize());
    painter.restore();
}

void CompassDialView::drawLetters(QPainter& painter) {
    for (std::size_t quarter = 0; quarter < letters_.size(); ++quarter) {
        painter.save();
        painter.rotate(90.0 * static_cast<double>(quarter));
        painter.translate(0.0, -side_ / 2.0 * letterRadiusPart);
        painter.fillPath(letters_[quarter], quarter == 0 ? northColor : letterColor);
        painter.restore();
    }
}

void CompassDialView::drawFocusRing(QPainter& painter) const {
    const double radius = side_ / 2.0 + focusRingWidth;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, focusRingWidth + 2.0));
    painter.drawEllipse(QPointF(0.0, 0.0), radius, radius);
    painter.setPen(QPen(Qt::white, focusRingWidth));
    painter.drawEllipse(QPointF(0.0, 0.0), radius, radius);
}

void CompassDialView::focusInEvent(QFocusEvent* event) {
    // The ring is for keyboard users; pointer users do not need it.
    showsFocus_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QWidget::focusInEvent(event);
    update();
}

void CompassDialView::focusOutEvent(QFocusEvent* event) {
    showsFocus_ = false;
    QWidget::focusOutEvent(event);
    update();
}

}  // namespace quode
