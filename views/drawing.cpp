// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/drawing.h"

#include <QPainter>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "views/qt_conversions.h"

namespace quode {
namespace {

// A transparent image of a size in points; a number that is whole except for its last bits counts as whole.
QImage clearImage(QSizeF size, double pixelsPerPoint) {
    const auto pixels = [&](double points) { return static_cast<int>(std::ceil(points * pixelsPerPoint - 1e-6)); };
    QImage image(pixels(size.width()), pixels(size.height()), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelsPerPoint);
    image.fill(Qt::transparent);
    return image;
}

// Draws an image in a size through a transform onto a transparent canvas.
QImage drawn(const QImage& image, Size size, QSizeF canvasSize, const QTransform& transform) {
    QImage canvas = clearImage(canvasSize, image.devicePixelRatio());
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setTransform(transform, true);
    painter.drawImage(QRectF(0.0, 0.0, size.width, size.height), image);
    return canvas;
}

}  // namespace

void drawRoundedRectangle(QPainterPath& path, const Rect& rect, double radius) {
    const double r = std::clamp(radius, 0.0, std::min(rect.width, rect.height) * 0.5);
    const double maxX = rect.x + rect.width;
    const double maxY = rect.y + rect.height;
    // A quarter of a circle around a centre, clockwise from an angle in the convention of paths.
    const auto corner = [&](double centerX, double centerY, double from) {
        if (r > 0.0) {
            path.arcTo(centerX - r, centerY - r, 2.0 * r, 2.0 * r, from, -90.0);
        } else {
            path.lineTo(centerX, centerY);
        }
    };
    path.moveTo(rect.x, rect.y + rect.height * 0.5);
    corner(rect.x + r, rect.y + r, 180.0);
    corner(maxX - r, rect.y + r, 90.0);
    corner(maxX - r, maxY - r, 0.0);
    corner(rect.x + r, maxY - r, 270.0);
    path.closeSubpath();
}

QImage imageRotatedByDegrees(double degrees, const QImage& image, Size size) {
    const QRectF natural(0.0, 0.0, size.width, size.height);
    const QSizeF canvas = QTransform().rotate(degrees).mapRect(natural).size();
    QTransform transform;
    transform.translate(canvas.width() * 0.5, canvas.height() * 0.5);
    transform.rotate(degrees);
    transform.translate(-size.width * 0.5, -size.height * 0.5);
    return drawn(image, size, canvas, transform);
}

QImage flippedImageByAxis(const QImage& image, Size size) {
    QTransform transform;
    transform.translate(size.width, 0.0);
    transform.scale(-1.0, 1.0);
    return drawn(image, size, {size.width, size.height}, transform);
}

Label* addLabel(QWidget& parent, Point center, Size size, const std::string& fontName, double fontSize,
                std::optional<std::string> text, const Color& textColor, TextAlign textAlign, bool hidden, bool shadow,
                int tag) {
    auto label = std::make_unique<Label>(Rect{0.0, 0.0, size.width, size.height});
    label->setFont(fontName, fontSize);
    label->setCenter(center);
    label->setTextAlign(textAlign);
    label->setText(std::move(text));
    label->setTextColor(textColor);
    label->setShadow(shadow);
    label->setTag(tag);
    if (hidden) label->hide();
    return addSubview(parent, std::move(label));
}

}  // namespace quode
