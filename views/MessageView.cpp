// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/MessageView.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QPainter>
#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

#include "common/GlobalFuncs.h"
#include "views/drawing.h"
#include "views/qt_conversions.h"
#include "views/toast_motion.h"

namespace quode {
namespace {

using Queue = std::deque<std::unique_ptr<MessageView>>;

constexpr double cornerRadius = 5.0;
constexpr double frameTime = 1.0 / 60.0;
constexpr double shortestFrame = 0.001;

// The shown and waiting toasts of the whole process; null without any. A toast on screen also has a parent: when that
// deletes it, the toast removes itself from the queue.
std::optional<Queue>& queue() {
    static std::optional<Queue> toasts;
    return toasts;
}

void dropQueue() {
    const std::optional<Queue> gone = std::exchange(queue(), std::nullopt);
}

// Widgets cannot outlive the application: the remaining toasts are deleted with it.
void makeQueue() {
    queue().emplace();
    static const bool registered = [] {
        qAddPostRoutine(dropQueue);
        return true;
    }();
    static_cast<void>(registered);
}

bool& keepsNewestOnly() {
    static bool value = false;
    return value;
}

AnimationClock*& injectedClock() {
    static AnimationClock* clock = nullptr;
    return clock;
}

AnimationClock& currentClock() {
    return injectedClock() != nullptr ? *injectedClock() : systemAnimationClock();
}

Size sizeOf(const QWidget& widget) {
    if (const auto* view = qobject_cast<const View*>(&widget)) return {view->bounds().width, view->bounds().height};
    return {double(widget.width()), double(widget.height())};
}

}  // namespace

void MessageView::setAnimationClock(AnimationClock* clock) {
    injectedClock() = clock;
}

void MessageView::setKeepsNewestOnly(bool value) {
    keepsNewestOnly() = value;
}

void MessageView::clearQueue() {
    dropQueue();
}

std::size_t MessageView::queueLength() {
    return queue() ? queue()->size() : 0;
}

std::unique_ptr<MessageView> MessageView::initWithText(const std::string& text) {
    return std::unique_ptr<MessageView>(new MessageView(text));
}

MessageView::MessageView(const std::string& text) : clock_(currentClock()) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAutoresizesSubviews(false);
    GlobalFuncs& globalFuncs = GlobalFuncs::globalFuncs();
    const double width = globalFuncs.getWidgetWidth() - 40.0;
    const Settings defaults;
    textLabel_ = addLabel(*this, {width * 0.5, 24.0}, {width, 40.0}, defaults.fontName, defaults.fontSize, text,
                          globalFuncs.firstColor(), alignCenter, false, false, 0);
    textLabel_->setNumberOfLines(2);
    textLabel_->setDrawsItself(false);
}

MessageView::~MessageView() {
    if (!queue() || queue()->empty() || queue()->front().get() != this) return;
    // The parent deletes the toast that it shows; the waiting ones have no parent left.
    Queue waiting = *std::exchange(queue(), std::nullopt);
    static_cast<void>(waiting.front().release());
}

void MessageView::toastInView(QWidget& parent, const std::string& text) {
    if (keepsNewestOnly()) clearQueue();
    auto toast = initWithText(text);
    const Size label{toast->textLabel_->bounds().width, toast->textLabel_->bounds().height};
    const Size outer = sizeOf(parent);
    toast->setFrame({0.0, 0.0, label.width + 20.0, label.height + 10.0});
    toast->setCenter({outer.width * 0.5, outer.height * 0.5 - 20.0});
    toast->alpha_ = 0.0;
    const bool isFirst = !queue();
    if (isFirst) makeQueue();
    queue()->push_back(std::move(toast));
    if (isFirst) nextToastInView(parent);
}

void MessageView::nextToastInView(QWidget& parent) {
    if (!queue() || queue()->empty()) return;
    MessageView& toast = *queue()->front();
    toast.setParent(&parent);
    toast.popIn();
    toast.show();
    toast.raise();
    QAccessibleEvent alert(&toast, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void MessageView::popIn() {
    fading_ = false;
    begin();
}

void MessageView::fadeToastOut() {
    if (fading_) return;
    fading_ = true;
    lookAtFade_ = {alpha_, scale_};
    begin();
}

void MessageView::begin() {
    ++run_;
    began_ = clock_.now();
    animate();
}

void MessageView::wakeAfter(double seconds, void (MessageView::*step)()) {
    clock_.wakeAfter(AnimationClock::Duration(seconds), *this, [this, step, run = run_] {
        if (run == run_) (this->*step)();
    });
}

void MessageView::animate() {
    const double time = (clock_.now() - began_).count();
    if (fading_ && time >= toast::fadeDuration) {
        removeFromQueue();  // deletes this toast
        return;
    }
    const toast::Look look = fading_ ? toast::fadeOut(time, lookAtFade_) : toast::popIn(time);
    alpha_ = look.alpha;
    scale_ = look.scale;
    placeOnScreen();
    update();
    const double rest = (fading_ ? toast::fadeDuration : toast::popDuration) - time;
    if (rest > 0.0) {
        wakeAfter(std::clamp(rest, shortestFrame, frameTime), &MessageView::animate);
    } else {
        wakeAfter(std::max(toast::stay - time, 0.0), &MessageView::fadeToastOut);
    }
}

void MessageView::removeFromQueue() {
    QWidget* parent = parentWidget();
    const auto isThis = [this](const std::unique_ptr<MessageView>& toast) { return toast.get() == this; };
    if (!queue()) return;
    const auto place = std::find_if(queue()->begin(), queue()->end(), isThis);
    if (place == queue()->end()) return;
    const std::unique_ptr<MessageView> self = std::move(*place);
    queue()->erase(place);
    if (queue()->empty() || parent == nullptr) {
        dropQueue();
    } else {
        nextToastInView(*parent);
    }
}

QRect MessageView::screenGeometry() const {
    const Size size{frame().width * scale_, frame().height * scale_};
    const Point middle = center();
    return QRectF(middle.x - size.width * 0.5, middle.y - size.height * 0.5, size.width, size.height).toAlignedRect();
}

void MessageView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(alpha_);
    painter.translate(toQt(center()) - QPointF(geometry().topLeft()));
    painter.scale(scale_, scale_);
    painter.translate(-frame().width * 0.5, -frame().height * 0.5);
    QPainterPath box;
    drawRoundedRectangle(box, bounds(), cornerRadius);
    painter.fillPath(box, toQt(boxColor));
    painter.translate(textLabel_->frame().x, textLabel_->frame().y);
    textLabel_->draw(painter);
}

}  // namespace quode
