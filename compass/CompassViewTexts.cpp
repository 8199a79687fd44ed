// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The texts around the dial: its source, the heading, and the numbers.
#include <algorithm>

#include "compass/CompassCloseButton.h"
#include "compass/CompassView.h"
#include "compass/compass_texts.h"

namespace quode {
namespace {

// In points.
constexpr int gap = 6;
constexpr int widestPlate = 440;
constexpr int roomForPlate = 140;

// The centre of a circle that fits between the corner of the dial's square and the dial, as a fraction of half the side.
constexpr double cornerCircle = 0.1716;

}  // namespace

std::vector<std::string> CompassView::statusLines() {
    std::vector<std::string> lines;
    const auto add = [&](compass_text::Id id, std::initializer_list<FormatValue> values = {}) {
        if (auto text = compassText(glbFuncs_, id, values)) lines.push_back(std::move(*text));
    };
    add(compass_text::heading, {wholeDegrees(dial_->heading())});
    switch (guide_) {
        case Guide::sensor:
            return lines;
        case Guide::none:
            add(compass_text::waiting);
            break;
        case Guide::calibrating:
            add(compass_text::calibrate);
            break;
        case Guide::noSensor:
            add(compass_text::noSensor);
            break;
        case Guide::accessDenied:
            add(compass_text::accessDenied);
            break;
        case Guide::noAnswer:
            add(compass_text::noAnswer);
            break;
    }
    if (compassAngle_ == 0.0F) add(compass_text::northUp);
    add(compass_text::turnByHand);
    return lines;
}

void CompassView::showStatus() {
    const auto lines = statusLines();
    status_->setLines(lines, true);
    std::string description;
    for (const std::string& line : lines) description += description.empty() ? line : " " + line;
    dial_->setAccessibleDescription(QString::fromStdString(description));
    placeTexts();
}

void CompassView::placeParts() {
    const bool isOnScreen = window_ && !size().isEmpty();
    const QSizeF area = isOnScreen ? QSizeF(size()) : QSizeF(glbFuncs_.getScreenWidth(), glbFuncs_.getScreenHeight());
    dial_->setCenter({area.width() / 2.0, area.height() / 2.0});
    placeTexts();
    placeCloseButton();
}

// Above and below the dial; to its left and right where these have more room.
void CompassView::placeTexts() {
    const double half = dial_->side() / 2.0;
    const QPointF center = dial_->center();
    const QRect dial = QRectF(center.x() - half, center.y() - half, 2.0 * half, 2.0 * half).toAlignedRect();
    const int screenWidth = qRound(2.0 * center.x()), screenHeight = qRound(2.0 * center.y());

    const bool besideDial = dial.top() < dial.left() && dial.top() < roomForPlate;
    const int widest = std::clamp(besideDial ? dial.left() - 2 * gap : screenWidth - 2 * gap, 1, widestPlate);
    const auto place = [&](CompassPlate& plate, auto topLeft) {
        const int width = plate.fitWithin(widest);
        const QSize plateSize(width, plate.heightFor(width));
        plate.setGeometry(QRect(topLeft(plateSize), plateSize));
    };
    const auto centered = [](double middle, int extent) { return qRound(middle - extent / 2.0); };
    if (besideDial) {
        const auto top = [&](QSize plate) { return std::max(centered(center.y(), plate.height()), 0); };
        place(*status_, [&](QSize plate) { return QPoint(dial.left() - gap - plate.width(), top(plate)); });
        place(*numbers_, [&](QSize plate) { return QPoint(dial.right() + 1 + gap, top(plate)); });
    } else {
        const auto left = [&](QSize plate) { return centered(center.x(), plate.width()); };
        place(*status_,
              [&](QSize plate) { return QPoint(left(plate), std::max(dial.top() - gap - plate.height(), 0)); });
        place(*numbers_, [&](QSize plate) {
            return QPoint(left(plate), std::min(dial.bottom() + 1 + gap, screenHeight - plate.height()));
        });
    }
}

// In the upper right corner of the dial's square, which is free.
void CompassView::placeCloseButton() {
    const double corner = dial_->side() / 2.0 * (1.0 - cornerCircle);
    const QPointF closeAt = dial_->center() + QPointF(corner, -corner);
    closeButton_->move((closeAt - QPointF(closeButton_->width(), closeButton_->height()) / 2.0).toPoint());
}

}  // namespace quode
