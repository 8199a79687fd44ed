// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/toast_motion.h"

#include <QEasingCurve>
#include <QPointF>
#include <algorithm>

namespace quode::toast {
namespace {

constexpr double appearDuration = 0.2;
constexpr double growDuration = 0.4;
constexpr double settleDuration = popDuration - growDuration;
constexpr double swellDuration = 0.5;
constexpr double shrinkDuration = 0.5;
constexpr double smallScale = 0.1;
constexpr double largeScale = 1.6;

const QEasingCurve& easing() {
    static const QEasingCurve curve = [] {
        QEasingCurve bezier(QEasingCurve::BezierSpline);
        bezier.addCubicBezierSegment(QPointF(0.42, 0.0), QPointF(0.58, 1.0), QPointF(1.0, 1.0));
        return bezier;
    }();
    return curve;
}

// The value of a movement that begins at time 0.
double moved(double from, double to, double time, double duration) {
    if (time >= duration) return to;
    return from + (to - from) * easing().valueForProgress(std::max(time / duration, 0.0));
}

}  // namespace

Look popIn(double time) {
    const double alpha = moved(0.0, 1.0, time, appearDuration);
    if (time < growDuration) return {alpha, moved(smallScale, largeScale, time, growDuration)};
    return {alpha, moved(largeScale, 1.0, time - growDuration, settleDuration)};
}

Look fadeOut(double time, Look from) {
    const double alpha = moved(from.alpha, 0.0, time, fadeDuration);
    if (time < swellDuration) return {alpha, moved(from.scale, largeScale, time, swellDuration)};
    return {alpha, moved(largeScale, smallScale, time - swellDuration, shrinkDuration)};
}

}  // namespace quode::toast
