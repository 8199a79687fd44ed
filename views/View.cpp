// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/View.h"

#include <QMoveEvent>
#include <QResizeEvent>
#include <cmath>

#include "views/accessibility.h"

namespace quode {
namespace {

// One dimension of a view in its parent.
struct Span {
    double origin;
    double length;
};

// Distributes a change of the outer length over the flexible parts, in proportion to their sizes.
Span followed(Span span, double oldOuter, double newOuter, bool flexibleBefore, bool flexibleLength,
              bool flexibleAfter) {
    const double change = newOuter - oldOuter;
    const double after = oldOuter - span.origin - span.length;
    const int parts = int(flexibleBefore) + int(flexibleLength) + int(flexibleAfter);
    if (parts == 0 || change == 0.0) return span;
    const double total =
        (flexibleBefore ? span.origin : 0.0) + (flexibleLength ? span.length : 0.0) + (flexibleAfter ? after : 0.0);
    const auto share = [&](double part) { return total > 0.0 ? change * part / total : change / parts; };
    return {span.origin + (flexibleBefore ? share(span.origin) : 0.0),
            span.length + (flexibleLength ? share(span.length) : 0.0)};
}

Rect followed(const Rect& frame, unsigned mask, Size oldOuter, Size newOuter) {
    const auto flexible = [mask](Autoresizing part) { return (mask & part) != 0; };
    const Span x = followed(Span{frame.x, frame.width}, oldOuter.width, newOuter.width, flexible(flexibleLeftMargin),
                            flexible(flexibleWidth), flexible(flexibleRightMargin));
    const Span y = followed(Span{frame.y, frame.height}, oldOuter.height, newOuter.height, flexible(flexibleTopMargin),
                            flexible(flexibleHeight), flexible(flexibleBottomMargin));
    return {x.origin, y.origin, x.length, y.length};
}

}  // namespace

View::View(const Rect& frame, QWidget* parent) : QWidget(parent), frame_(frame) {
    setLayoutDirection(Qt::LeftToRight);  // frames count from the left in every language
    installAccessibility();
    View::placeOnScreen();
}

void View::setFrame(const Rect& frame) {
    applyFrame(frame);
}

Point View::center() const {
    return {frame_.x + frame_.width * 0.5, frame_.y + frame_.height * 0.5};
}

void View::setCenter(Point center) {
    frame_.x = center.x - frame_.width * 0.5;
    frame_.y = center.y - frame_.height * 0.5;
    placeOnScreen();
}

void View::applyFrame(const Rect& frame) {
    const Size before{frame_.width, frame_.height};
    const Size after{frame.width, frame.height};
    frame_ = frame;
    placeOnScreen();
    if (!autoresizesSubviews_ || before == after) return;
    for (QObject* child : children()) {
        if (auto* view = qobject_cast<View*>(child)) {
            view->setFrame(followed(view->frame(), view->autoresizingMask(), before, after));
        }
    }
}

QRect View::screenGeometry() const {
    const auto rounded = [](double points) { return static_cast<int>(std::lround(points)); };
    const QPoint corner(rounded(frame_.x), rounded(frame_.y));
    return {corner,
            QSize(rounded(frame_.x + frame_.width) - corner.x(), rounded(frame_.y + frame_.height) - corner.y())};
}

void View::placeOnScreen() {
    setGeometry(screenGeometry());
}

void View::takeScreenGeometry() {
    const QRect shown = geometry();
    if (shown != screenGeometry()) {
        applyFrame({double(shown.x()), double(shown.y()), double(shown.width()), double(shown.height())});
    }
}

void View::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    takeScreenGeometry();
}

void View::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    takeScreenGeometry();
}

}  // namespace quode
