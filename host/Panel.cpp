// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/Panel.h"

#include <cmath>
#include <tuple>

namespace quode::host {
namespace {

constexpr int sameClick = 300;  // ms between the loss of focus and the rest of the click that caused it

QSize wholePoints(const Size& size) {
    return {int(std::lround(size.width)), int(std::ceil(size.height))};
}

}  // namespace

Panel::Panel(WidgetViewController& widget, PanelWindow& window, const Clock& clock, MomentWatch& watch,
             std::function<void()> prepare)
    : widget_(widget), window_(window), clock_(clock), watch_(watch), prepare_(std::move(prepare)) {
    widget_.setWidgetHost(this);
    connect(&watch_, &MomentWatch::stirred, this, &Panel::presentAnew);
    connect(&window_, &PanelWindow::dismissAsked, this, &Panel::dismissByUser);
}

Panel::~Panel() {
    if (isPresented_) hideWidget();
    widget_.setWidgetHost(nullptr);
}

void Panel::present(QPoint pointer) {
    if (!isPresented_) showWidget();
    window_.open(pointer);
}

void Panel::dismiss() {
    if (!isPresented_) return;
    isPresented_ = false;
    window_.hide();
    hideWidget();
    watch_.watchFor(std::nullopt);
    Q_EMIT dismissed();
}

void Panel::dismissByUser() {
    if (!isPresented_) return;
    sinceDismissal_.start();
    dismiss();
}

void Panel::toggle(QPoint pointer) {
    if (isPresented_) return dismiss();
    const bool isSameClick = sinceDismissal_.isValid() && sinceDismissal_.elapsed() < sameClick;
    sinceDismissal_.invalidate();
    if (!isSameClick) present(pointer);
}

void Panel::showWidget() {
    isPresented_ = true;
    prepare_();
    watch_.watchFor(nextDay(clock_));
    widget_.hostDidPresent();
    window_.setContent(widget_.view());
    isAttached_ = true;
    invalidatePreferredViewSize();
}

void Panel::hideWidget() {
    isAttached_ = false;
    window_.releaseContent();
    widget_.hostDidDismiss();
}

void Panel::presentAnew() {
    if (!isPresented_) return;
    window_.setUpdatesEnabled(false);
    hideWidget();
    showWidget();
    window_.setUpdatesEnabled(true);
}

// While the widget builds itself its view is not in the window yet; the size is asked for afterwards.
void Panel::invalidatePreferredViewSize() {
    if (isAttached_) window_.setContentSize(wholePoints(widget_.preferredViewSize()));
}

Clock::TimePoint nextDay(const Clock& clock) {
    const auto dayAt = [&](std::chrono::sys_seconds moment) {
        const CivilTime time = clock.civilTime(moment);
        return std::tuple(time.year, time.month, time.day);
    };
    const auto now = std::chrono::floor<std::chrono::seconds>(clock.now());
    const auto today = dayAt(now);
    auto before = now, after = now + std::chrono::hours(27);  // a day has 25 hours when the clocks go back
    while (after - before > std::chrono::seconds(1)) {
        const auto middle = before + (after - before) / 2;
        (dayAt(middle) == today ? before : after) = middle;
    }
    return after;
}

}  // namespace quode::host
