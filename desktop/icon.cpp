// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/icon.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <numbers>

namespace quode {
namespace {

constexpr QColor night(28, 28, 30), gold(255, 211, 78);

// On a field of 64 by 64, as in packaging/icons/quode.svg.
QPainterPath crescent() {
    QPainterPath full, shadow;
    full.addEllipse(QPointF(30.0, 32.0), 20.0, 20.0);
    shadow.addEllipse(QPointF(36.5, 32.0), 16.0, 16.0);
    return full - shadow;
}

QPainterPath star() {
    constexpr QPointF middle(42.0, 32.0);
    constexpr double outer = 9.0, inner = outer * 0.382;
    QPolygonF corners;
    for (int corner = 0; corner < 10; ++corner) {
        const double angle = corner * std::numbers::pi / 5.0, radius = corner % 2 == 0 ? outer : inner;
        corners << middle + QPointF(-radius * std::cos(angle), radius * std::sin(angle));
    }
    QPainterPath path;
    path.addPolygon(corners);
    path.closeSubpath();
    return path;
}

QPixmap pixmap(int size) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 64.0, size / 64.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(night);
    painter.drawRoundedRect(QRectF(2.0, 2.0, 60.0, 60.0), 14.0, 14.0);
    painter.setBrush(gold);
    painter.drawPath(crescent());
    painter.drawPath(star());
    return picture;
}

}  // namespace

QIcon quodeIcon() {
    if (QIcon themed = QIcon::fromTheme("quode"); !themed.isNull()) return themed;
    QIcon drawn;
    for (const int size : {16, 22, 24, 32, 48, 64}) drawn.addPixmap(pixmap(size));
    return drawn;
}

}  // namespace quode
