// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <string>

#include "common/Color.h"
#include "platform/Geometry.h"
#include "views/Point.h"

namespace quode {

inline QColor toQt(const Color& color) {
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

inline QRectF toQt(const Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

inline QPointF toQt(Point point) {
    return {point.x, point.y};
}

inline QString toQt(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

}  // namespace quode
